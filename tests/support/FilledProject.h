#pragma once

#include "project/KRNFile.h"
#include "tests_support/TestMain.h"

namespace undotest {

inline const QString ann = "Ann"_s;

inline Highlight highlight(int id, int kernoId, int sourceId, int questionId, int start, int end,
                           const QString& author = ann) {
    return Highlight(id, kernoId, sourceId, questionId, {}, start, end - start, end, author, {}, 0, 0, 0,
                     false);
}

inline Memo memo(int id, int sourceId, int questionId, int start, int end, const QString& content) {
    return Memo(id, sourceId, questionId, content, start, end - start, end, ann, {}, 0, 0);
}

}  // namespace undotest

/// Fills a new project with a little of everything: questions 1 and 2; sources 1 to 3 with an answer to each
/// (ids 1 to 6). Kernos 1 ("Trust") with 2 ("Doubt") and 3 ("Fear") below it, 4 ("Hope") below 2, and 5
/// ("Care"). Groups 1 and 2, shortcuts A, B and 1, properties 1 ("Age", one value: 1 "30", 2 "40") and 2
/// ("Role", several: 3 "Nurse", 4 "Doctor").
inline void fillProject(KRNFile& file) {
    using namespace undotest;
    file.saveQuestion(Question(1, "What happened?"_s, 1));
    file.saveQuestion(Question(2, "And \"then\"?\\"_s, 2));
    const QStringList answers{"A long enough answer to hold all of the passages that are coded in it."_s,
                              "Short, with \"quotes\", a \\ and\na second line."_s,
                              "<p>An answer in <b>HTML</b> &amp; so on</p>"_s,
                              "Another with an emoji \xF0\x9F\x98\x80 in it."_s,
                              "The fifth answer of the project."_s,
                              "The sixth and last answer."_s};
    for (int source = 1; source <= 3; ++source) {
        file.saveSource(Source(source, "Interview %1"_s.arg(source), "md_generic"_s, ann, {}));
        for (int question = 1; question <= 2; ++question) {
            const int id = (source - 1) * 2 + question;
            file.saveAnswer(QuestionAnswer(id, question, source, ann, answers.at(id - 1), {}));
        }
    }
    const auto kerno = [&](int id, int parent, const char* title) {
        file.saveKerno(Kerno(id, parent, QColor(10 * id, 20, 30), QString::fromUtf8(title), "about"_s, {},
                             ann, id, 2 * id));
    };
    kerno(1, -1, "Trust");
    kerno(2, 1, "Doubt");
    kerno(3, 1, "Fear");
    kerno(4, 2, "Hope");
    kerno(5, -1, "Care");
    file.batchSaveHighlights({highlight(1, 1, 1, 1, 0, 10), highlight(2, 1, 1, 1, 20, 30),
                              highlight(3, 5, 1, 1, 5, 15), highlight(4, 5, 1, 1, 30, 40),
                              highlight(5, 2, 2, 1, 0, 8), highlight(6, 4, 3, 2, 1, 4),
                              highlight(7, 5, 2, 2, 0, 5), highlight(8, 1, 2, 2, 6, 9)});
    file.batchSaveMemos({memo(1, 1, 1, 0, 5, "Look \"here\""_s), memo(2, 2, 2, 3, 6, "and\nthere"_s)});
    file.saveGroup(Group(1, "Feelings"_s, true));
    file.saveGroup(Group(2, "Acts"_s, true));
    file.saveKernoGroup(KernoGroup(1, 1, 1));
    file.saveKernoGroup(KernoGroup(2, 1, 2));
    file.saveKernoGroup(KernoGroup(3, 2, 4));
    file.saveKernoShortcutKey(KernoShortcutKey("A"_s, 1, ann));
    file.saveKernoShortcutKey(KernoShortcutKey("B"_s, 2, ann));
    file.saveKernoShortcutKey(KernoShortcutKey("1"_s, 5, ann));
    file.saveMetadataKey(SourceMetadataKey(1, false, false, "Age"_s));
    file.saveMetadataKey(SourceMetadataKey(2, true, true, "Role"_s));
    const QStringList values{"30"_s, "40"_s, "Nurse"_s, "Doctor"_s};
    for (int id = 1; id <= 4; ++id)
        file.saveMetadataValue(SourceMetadataValue(id, id <= 2 ? 1 : 2, values.at(id - 1)));
    file.saveMetadata(SourceMetadata(1, 1, 1, 1, ann, {}));
    file.saveMetadata(SourceMetadata(2, 1, 2, 3, ann, {}));
    file.saveMetadata(SourceMetadata(3, 1, 2, 4, ann, {}));
    file.saveMetadata(SourceMetadata(4, 2, 2, 3, ann, {}));
}
