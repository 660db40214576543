#pragma once

#include <QImage>
#include <QStringList>

class AppDriver;
class QQuickItem;

/// Whether what stands on a screen can be read.
namespace layout {

/// What can't be read in `root`, a line for each text that is cut without being one of the user's, that
/// reaches out of the window or of what clips it, that lies upon another, or whose colour is too near to what
/// is behind it. `picture` is what the window shows.
QStringList faults(QQuickItem* root, const QImage& picture);

/// What the keyboard reaches in `root` and a screen reader can't tell: a line for each item that has no role
/// or no name.
QStringList unnamed(QQuickItem* root);

/// The faults of what is uppermost on the screen: menus, else dialogs, else the window.
QStringList screenFaults(AppDriver& driver);

/// The contrast of the two colours, from 1 to 21, as the eye takes it.
qreal contrast(QRgb a, QRgb b);

}  // namespace layout
