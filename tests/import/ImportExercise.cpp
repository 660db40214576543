#include "ImportExercise.h"

#include "import/ImportedText.h"
#include "import/QuestionParser.h"
#include "import/TextFile.h"
#include "records/QuestionAnswer.h"

#include <QFile>

QString ImportExercise::write(const QString& suffix, const QByteArray& bytes) const {
    QFile file(m_folder.filePath(QLatin1String("file.") + suffix));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the file of the test");
    return file.fileName();
}

QString ImportExercise::plainTextOf(const QString& path) {
    QuestionAnswer answer;
    answer.setAnswer(importedText(textfile::read(QUrl::fromLocalFile(path))));
    return answer.plainAnswer();
}

QString ImportExercise::import(const QString& suffix, const QByteArray& bytes, bool* source) const {
    const QUrl url = QUrl::fromLocalFile(write(suffix, bytes));
    const QVariantList pairs = parseQuestions(textfile::read(url), QString(), QString(), true);
    if (source)
        *source = !pairs.isEmpty();
    return pairs.isEmpty() ? QString() : plainTextOf(url.toLocalFile());
}
