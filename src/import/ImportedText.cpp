#include "import/ImportedText.h"

#include "records/AnswerText.h"
#include "records/RichTextFragment.h"

#include <QRegularExpression>

QString withLineFeeds(QString text) {
    if (!text.contains(QLatin1Char('\r')))
        return text;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

QString importedText(const QString& text) {
    QString imported = withLineFeeds(text);
    if (isTakenForHtml(imported))
        return imported;
    const bool framed = imported.startsWith(richtext::wrapperStart());
    const QString head = framed ? richtext::wrapperStart() : QString();
    const QString end = framed ? richtext::wrapperEnd() : QLatin1Char('\n') + richtext::wrapperEnd();
    const QString tail = imported.endsWith(end) ? end : QString();
    static const QRegularExpression notAMark(QStringLiteral("<(?!/?[biu]>)"));
    imported = imported.mid(head.size(), imported.size() - head.size() - tail.size());
    return head + imported.replace(notAMark, QStringLiteral("&lt;")) + tail;
}

QString importedQuestion(const QString& text) {
    static const QRegularExpression mark(QStringLiteral("</?[biu]>"));
    return QString(text).remove(mark).trimmed();
}
