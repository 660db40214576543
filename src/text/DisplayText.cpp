#include "text/DisplayText.h"

#include <QRegularExpression>

QString displayHtml(const QString& html) {
    static const QRegularExpression first(
        QStringLiteral("^((?:<html>)?(?:<head></head>)?<body[^>]*>(?:<[biu]>)*)\n"));
    static const QRegularExpression last(QStringLiteral("\n((?:</[biu]>)*</body>(?:</html>)?)$"));
    QString shown = html;
    shown.replace(first, QStringLiteral("\\1<br>"));
    shown.replace(last, QStringLiteral("<br>\\1"));
    return shown;
}
