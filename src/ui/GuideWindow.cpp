#include "ui/GuideWindow.h"

#include "ui/WindowPlaces.h"

#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QShortcut>
#include <QTextBlock>
#include <QTextTable>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureWidth = 580; // fits the window
constexpr int margin = 12;        // units around the text
constexpr int cellRoom = 4;

const char16_t otherKeys[] = u"\n## In lists, the queue and reports\n\n"
                             "| Command | Keys |\n|---|---|\n"
                             "| Take the selected files out of the list | Delete |\n"
                             "| Stop a running row of the queue, remove a waiting one | Delete |\n"
                             "| Copy the selected rows of the queue | Ctrl+C |\n"
                             "| Find in a report, find again | Ctrl+F, F3 |\n"
                             "| Save a report | Ctrl+S |\n"
                             "| Close a report or the queue | Ctrl+W, Escape |\n";

QString row(const QAction& action)
{
    QStringList keys;
    for (const QKeySequence& key : action.shortcuts())
        keys += key.toString(QKeySequence::NativeText);
    return keys.isEmpty() ? QString()
                          : u"| %1 | %2 |\n"_s.arg(action.text().remove(u'&').remove(u'…'), keys.join(u", "_s));
}

QString keysOf(const QMenuBar& menus)
{
    QString text;
    for (const QAction* const entry : menus.actions()) {
        if (!entry->menu()) continue;
        text += u"\n## %1\n\n| Command | Keys |\n|---|---|\n"_s.arg(entry->text().remove(u'&'));
        for (const QAction* const action : entry->menu()->actions())
            text += row(*action);
    }
    return text;
}

/// Over the whole width, with room around the words; the columns of tables of two are alike.
void tidy(QTextTable& table, const QPalette& palette)
{
    QTextTableFormat format = table.format();
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setBorderBrush(palette.color(QPalette::Mid));
    format.setCellPadding(cellRoom);
    format.setCellSpacing(0);
    if (table.columns() == 2)
        format.setColumnWidthConstraints(
            {QTextLength(QTextLength::PercentageLength, 65), QTextLength(QTextLength::PercentageLength, 35)});
    table.setFormat(format);
}

void tidy(QTextDocument& text, const QPalette& palette)
{
    text.setDocumentMargin(margin);
    for (QTextFrame* const frame : text.rootFrame()->childFrames()) {
        if (auto* const table = qobject_cast<QTextTable*>(frame)) tidy(*table, palette);
    }
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        QTextBlockFormat format;
        format.setTopMargin(block.position() == 0 ? 0 : margin);
        format.setBottomMargin(cellRoom);
        QTextCursor(block).mergeBlockFormat(format);
    }
}

/// One window of a kind; asking again brings it to the front.
void show(QPointer<GuideWindow>& window, const QString& title, const QString& markdown, QWidget* parent)
{
    if (!window) window = new GuideWindow(title, markdown, parent);
    bringToFront(*window);
}

} // namespace

GuideWindow::GuideWindow(const QString& title, const QString& markdown, QWidget* parent) : QTextBrowser(parent)
{
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    setObjectName(u"guide"_s);
    setOpenExternalLinks(true);
    setMarkdown(markdown);
    tidy(*document(), palette());
    resize(640, 560);
    fitToScreen(*this);
    for (const char16_t* const key : {u"Escape", u"Ctrl+W"})
        connect(new QShortcut(QKeySequence(QString::fromUtf16(key)), this), &QShortcut::activated, this,
                &QWidget::close);
}

QVariant GuideWindow::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    const QImage picture(u":/"_s + name.path());
    return picture.width() > pictureWidth ? picture.scaledToWidth(pictureWidth, Qt::SmoothTransformation) : picture;
}

void showGuide(QWidget* parent)
{
    static QPointer<GuideWindow> window; // main thread only
    QFile guide(u":/guide.md"_s);
    show(window, u"User guide"_s, guide.open(QIODevice::ReadOnly) ? QString::fromUtf8(guide.readAll()) : QString(),
         parent);
}

void showShortcuts(const QMenuBar& menus, QWidget* parent)
{
    static QPointer<GuideWindow> window; // main thread only
    show(window, u"Keyboard shortcuts"_s, keysOf(menus) + QString::fromUtf16(otherKeys), parent);
}

} // namespace zolt
