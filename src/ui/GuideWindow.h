// The user guide, and the keys of the program.
#pragma once

#include <QMenuBar>
#include <QTextBrowser>

namespace zolt {

/// A window that shows a text with headings and tables; it goes when it is closed. Main thread.
class GuideWindow : public QTextBrowser
{
public:
    /// @param markdown  the text
    GuideWindow(const QString& title, const QString& markdown, QWidget* parent);

protected:
    /// Pictures are those that the program carries, no wider than the window.
    QVariant loadResource(int type, const QUrl& name) override;
};

/// Shows the guide that the program carries, or brings it to the front.
void showGuide(QWidget* parent);

/// Shows every key: those of the menus, as they stand there, and those of lists and windows.
void showShortcuts(const QMenuBar& menus, QWidget* parent);

} // namespace zolt
