#include "undo/BatchCommand.h"

#include "project/KRNFile.h"

template <typename T> void saveBatch(KRNFile& file, const QList<T>& records) {
    file.saveAll(records);
}

template <typename T> void removeBatch(KRNFile& file, const QList<T>& records) {
    file.deleteAll(records);
}

template <> void saveBatch(KRNFile& file, const QList<Highlight>& highlights) {
    file.batchSaveHighlights(highlights);
}

template <> void saveBatch(KRNFile& file, const QList<Memo>& memos) {
    file.batchSaveMemos(memos);
}

template <> void removeBatch(KRNFile& file, const QList<Highlight>& highlights) {
    file.batchDeleteHighlights(highlights);
}

template <> void removeBatch(KRNFile& file, const QList<Memo>& memos) {
    file.batchDeleteMemos(memos);
}

template void saveBatch(KRNFile&, const QList<Source>&);
template void saveBatch(KRNFile&, const QList<QuestionAnswer>&);
template void saveBatch(KRNFile&, const QList<SourceMetadata>&);
template void saveBatch(KRNFile&, const QList<SourceMetadataValue>&);
template void removeBatch(KRNFile&, const QList<Source>&);
template void removeBatch(KRNFile&, const QList<QuestionAnswer>&);
template void removeBatch(KRNFile&, const QList<SourceMetadata>&);
template void removeBatch(KRNFile&, const QList<SourceMetadataValue>&);
