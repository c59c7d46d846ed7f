#include "ui/panels/QtPanels.h"

#include "platform/Product.h"
#include "platform/threads/MainQueue.h"
#include "shell/Wording.h"
#include "ui/TextSides.h"
#include "ui/binding/WindowBinding.h"
#include "ui/panels/AlertContext.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QMessageBox>

#include <future>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Runs the work on the main thread and hands back what it gives or throws.
template <class Work> auto onMain(Work work) -> decltype(work())
{
    if (isMainThread()) return work();
    std::packaged_task<decltype(work())()> task(std::move(work));
    auto answer = task.get_future();
    postToMain([&task] { task(); });
    return answer.get();
}

// What Escape and the window's own close button mean, where an alert has such a button: the answer that starts nothing.
bool isRefusal(const QString& button)
{
    return button == u"No" || button == u"Cancel";
}

struct AlertButton
{
    QString text;
    int reply;
    QMessageBox::ButtonRole role;
};

/// A question of a few words would else stand in a narrow column.
void widen(QMessageBox& box)
{
    constexpr int width = 360;
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid) grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

int ask(const QString& title, const QString& message, const std::vector<AlertButton>& buttons)
{
    QMessageBox box(QMessageBox::NoIcon, QString(), title, QMessageBox::NoButton, QApplication::activeWindow());
    box.setObjectName(u"alert"_s);
    box.setWindowTitle(QLatin1String(product::name));
    box.setIcon(buttons.size() > 1 ? QMessageBox::Question : QMessageBox::Information);
    box.setTextFormat(Qt::PlainText); // a file's name is no markup
    box.setInformativeText(message);
    QHash<const QAbstractButton*, int> replies;
    for (const AlertButton& button : buttons) {
        QPushButton* const shown = box.addButton(button.text, button.role);
        replies[shown] = button.reply;
        if (button.reply == alertReply::defaultButton) box.setDefaultButton(shown);
        if (isRefusal(button.text)) box.setEscapeButton(shown);
    }
    if (!box.escapeButton() && replies.size() == 1) box.setEscapeButton(box.defaultButton());
    widen(box);
    keepTextsOnTheirSide(box);
    box.exec();
    return replies.value(box.clickedButton(), alertReply::otherButton);
}

/// "*.[cC][uU][eE]": not every desktop's dialog sets case aside by itself.
QString anyCase(const QString& type)
{
    QString pattern = u"*."_s;
    for (const QChar letter : type)
        pattern += letter.isLetter() ? u"[%1%2]"_s.arg(letter.toLower()).arg(letter.toUpper()) : QString(letter);
    return pattern;
}

QStringList filtersOf(const OpenPanelRequest& request)
{
    if (request.fileTypes.isEmpty()) return {};
    QStringList kinds, patterns;
    for (const QString& type : request.fileTypes) {
        kinds += type.toUpper();
        patterns += anyCase(type);
    }
    return {u"%1 files (%2)"_s.arg(enumerated(kinds), patterns.join(u' '))};
}

/// What a person has chosen, and the folder where the next dialog opens.
struct Accepted
{
    QStringList paths;
    QString folder;
};

std::optional<Accepted> accepted(QFileDialog& dialog)
{
    dialog.setObjectName(u"filePanel"_s);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QString chosen = dialog.selectedFiles().first();
    // Not the folder shown: a whole path may have been typed.
    const bool isFolder = dialog.fileMode() == QFileDialog::Directory;
    return Accepted{dialog.selectedFiles(), isFolder ? chosen : QFileInfo(chosen).absolutePath()};
}

/// A folder of files is chosen in the one above it, where others like it lie; a place for outputs in the folder itself.
QString startIn(const QString& folder, const OpenPanelRequest& request)
{
    const bool choosesSource = request.canChooseDirectories && !request.canCreateDirectories;
    return choosesSource && !folder.isEmpty() ? QFileInfo(folder).path() : folder;
}

std::optional<Accepted> chooseFiles(const OpenPanelRequest& request, const QString& folder)
{
    QFileDialog dialog(QApplication::activeWindow(), request.title, startIn(folder, request));
    dialog.setFileMode(request.canChooseDirectories      ? QFileDialog::Directory
                       : request.allowsMultipleSelection ? QFileDialog::ExistingFiles
                                                         : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::ShowDirsOnly, request.canChooseDirectories && !request.canChooseFiles);
    dialog.setOption(QFileDialog::ReadOnly, request.canChooseDirectories && !request.canCreateDirectories);
    if (!request.prompt.isEmpty()) dialog.setLabelText(QFileDialog::Accept, request.prompt);
    dialog.setOption(QFileDialog::HideNameFilterDetails); // patterns are for no reader
    if (const QStringList filters = filtersOf(request); !filters.isEmpty()) dialog.setNameFilters(filters);
    return accepted(dialog);
}

std::optional<Accepted> chooseSavePath(const SavePanelRequest& request, const QString& folder)
{
    QFileDialog dialog(QApplication::activeWindow(), request.title.value_or(u"Save"_s), folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(request.fileName);
    return accepted(dialog);
}

} // namespace

int QtPanels::runAlert(const QString& title, const QString& message, const QString& defaultButton,
                       const QString& alternateButton, const QString& otherButton)
{
    const std::vector<AlertButton> all{{defaultButton, alertReply::defaultButton, QMessageBox::AcceptRole},
                                       {alternateButton, alertReply::alternateButton, QMessageBox::RejectRole},
                                       {otherButton, alertReply::otherButton, QMessageBox::DestructiveRole}};
    std::vector<AlertButton> buttons;
    std::copy_if(all.begin(), all.end(), std::back_inserter(buttons),
                 [](const auto& button) { return !button.text.isEmpty(); });
    const bool wantsContext = message.isEmpty() && buttons.size() > 1;
    return onMain([&] { return ask(title, wantsContext ? AlertContext::current() : message, buttons); });
}

std::optional<QStringList> QtPanels::openPanel(const OpenPanelRequest& request)
{
    return onMain([&]() -> std::optional<QStringList> {
        const auto chosen = chooseFiles(request, startFolder());
        if (!chosen) return std::nullopt;
        folder_ = chosen->folder;
        return chosen->paths;
    });
}

OptionalText QtPanels::savePanel(const SavePanelRequest& request)
{
    return onMain([&]() -> OptionalText {
        const auto chosen = chooseSavePath(request, startFolder());
        if (!chosen) return std::nullopt;
        folder_ = chosen->folder;
        return chosen->paths.first();
    });
}

/// Where the last one was left, but for work that has come since.
QString QtPanels::startFolder()
{
    const QString work = folderOfWork_ ? folderOfWork_() : QString();
    if (!work.isEmpty() && work != std::exchange(work_, work)) folder_ = work;
    return folder_;
}

void QtPanels::runModalForWindow(Window& window)
{
    onMain([&] {
        if (QWidget* const widget = WindowBinding::widgetOf(window)) modalRuns_.run(*widget);
    });
}

void QtPanels::stopModal()
{
    onMain([this] { modalRuns_.stop(); });
}

} // namespace zolt
