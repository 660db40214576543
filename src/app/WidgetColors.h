#pragma once

#include <QColor>
#include <QObject>

/// The colours of everything that the toolkit's widgets draw: message boxes, file and colour dialogs,
/// progress windows, the report's window. Each change of a colour changes all widgets, open ones too. On the
/// main thread.
class WidgetColors : public QObject {
    Q_OBJECT
    Q_PROPERTY(QColor background MEMBER m_background NOTIFY changed)
    Q_PROPERTY(QColor text MEMBER m_text NOTIFY changed)
    Q_PROPERTY(QColor field MEMBER m_field NOTIFY changed)
    Q_PROPERTY(QColor selection MEMBER m_selection NOTIFY changed)
    Q_PROPERTY(QColor selectedText MEMBER m_selectedText NOTIFY changed)
    Q_PROPERTY(QColor link MEMBER m_link NOTIFY changed)

public:
    explicit WidgetColors(QObject* parent = nullptr);

signals:
    void changed();

private:
    void apply() const;

    QColor m_background;
    QColor m_text;
    QColor m_field;
    QColor m_selection;
    QColor m_selectedText;
    QColor m_link;
};
