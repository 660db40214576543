#include "text/DisplayText.h"

#include <QRegularExpression>

QString displayHtml(const QString& html) {
    static const QRegularExpression first(
        QStringLiteral("^((?:<html>)?(?:<head></head>)?<body[^>]*>(?:<[biu]>)*)\n"));
    static const QRegularExpression last(QStringLiteral("\n((?:</[biu]>)*</body>(?:</html>)?)$"));
    // Pictures have no place in the stored positions, and their addresses are not to be asked for.
    static const QRegularExpression picture(QStringLiteral("<img\\b(?:[^>\"']|\"[^\"]*\"|'[^']*')*>"),
                                            QRegularExpression::CaseInsensitiveOption);
    QString shown = html;
    shown.remove(picture);
    shown.replace(first, QStringLiteral("\\1<br>"));
    shown.replace(last, QStringLiteral("<br>\\1"));
    return shown;
}
