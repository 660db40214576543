#pragma once

class QUrl;
class QWebEngineView;
class QWidget;

/// A web view for the program's own pages.
namespace pageview {

/// Whether the web engine starts here. It ends a program of the system's administrator that keeps its
/// sandbox.
bool canRun();

/// A child of `parent` that shows a page from a file. It reads files only, whatever the page says.
QWebEngineView* make(const QUrl& page, QWidget* parent);

}  // namespace pageview
