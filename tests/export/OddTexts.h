#pragma once

#include "UndoProject.h"
#include "records/ChatMessage.h"

/// Adds records to the open project whose texts hold all that a format may stumble over. There are then two
/// sources of one title, of which one has no passages, and passages that end inside of the text, at its end
/// and behind it.
inline void addOddTexts(UndoProject& project) {
    using namespace undotest;
    KRNFile& file = project.file;
    const auto odd = [](const char* what) {
        return "%1, \"quoted\" <b>&amp;\n\fand \u2019 \u00e2\u0080\u0099 \U0001F600 ]]> \u0001 end"_s.arg(
            QString::fromUtf8(what));
    };
    file.saveKerno(Kerno(6, -1, QColor(1, 2, 3), odd("kerno"), odd("description"), {}, odd("author"), 7, 8));
    file.saveSource(Source(4, odd("source"), {}, odd("writer"), {}));
    file.saveSource(Source(5, odd("source"), {}, ann, {}));
    file.saveAnswer(
        QuestionAnswer(7, 1, 4, ann, "\"Yes\",\nhe said. \U0001F600 No?\r\nDon\u2019t, 1 &lt; 2."_s, {}));
    file.saveAnswer(QuestionAnswer(8, 1, 5, ann, "Nothing of this is coded."_s, {}));
    file.batchSaveHighlights({highlight(9, 6, 4, 1, 0, 6), highlight(10, 1, 4, 1, 4, 19),
                              highlight(11, 6, 4, 1, 17, 400), highlight(12, 5, 4, 1, 4, 19)});
    file.batchSaveMemos({memo(3, 4, 1, 1, 9, odd("memo"))});
    file.saveGroup(Group(3, odd("group"), true));
    file.saveKernoGroup(KernoGroup(4, 3, 6));
    file.saveKernoGroup(KernoGroup(5, 1, 6));
    file.saveMetadataKey(SourceMetadataKey(3, true, true, odd("property")));
    file.saveMetadataValue(SourceMetadataValue(5, 3, odd("value")));
    file.saveMetadata(SourceMetadata(5, 4, 3, 5, ann, {}));
    file.saveMetadata(SourceMetadata(6, 4, 2, 4, ann, {}));
    file.saveMetadata(SourceMetadata(7, 4, 2, 3, ann, {}));
    file.saveChatMessage(ChatMessage(1, odd("message"), odd("author"), {}));
    project.settle();
}
