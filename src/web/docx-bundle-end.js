
// What the page calls, under one name.
var DocxBundle = { docx: docx, filesaver: { saveAs: window.saveAs } };
