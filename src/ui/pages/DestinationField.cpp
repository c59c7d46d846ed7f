#include "ui/pages/DestinationField.h"

#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "ui/DroppedPaths.h"
#include "ui/HintWhereDisabled.h"

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString askedFor = u"asked for at the start"_s;

/// The one folder of a drag; empty for anything else.
QString droppedFolder(const QDropEvent& event)
{
    const QStringList paths = droppedPaths(*event.mimeData());
    return paths.size() == 1 && QFileInfo(paths.first()).isDir() ? paths.first() : QString();
}

} // namespace

DestinationField::DestinationField(QWidget* parent)
    : QWidget(parent), line_(new QLineEdit(this)), makeButton_(new QPushButton(u"&Make"_s, this))
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(line_, 1);
    auto* const button = new QPushButton(u"C&hoose…"_s, this);
    button->setObjectName(u"chooseFolderButton"_s);
    button->setToolTip(u"Choose the folder for the outputs"_s);
    row->addWidget(button);
    row->addWidget(makeButton_);
    makeButton_->setObjectName(u"makeFolderButton"_s);
    makeButton_->setAccessibleName(u"Make the folder"_s);
    line_->setObjectName(u"destinationField"_s);
    line_->setAccessibleName(u"Folder for the outputs"_s);
    line_->setMinimumWidth(line_->fontMetrics().horizontalAdvance(askedFor) + 16);
    line_->setClearButtonEnabled(true);
    line_->setProperty("takesFolders", true);
    line_->installEventFilter(this);
    connect(line_, &QLineEdit::textChanged, this, [this] {
        guarded("destination", [this] {
            setMissing(false); // as long as nobody has looked
            if (changed_) changed_(folder());
        });
    });
    connect(button, &QPushButton::clicked, this, [this] { guarded("destination", [this] { choose(); }); });
    connect(makeButton_, &QPushButton::clicked, this, [this] { guarded("destination", [this] { make(); }); });
    setMissing(false);
    setPlace(Place::Folder);
}

QString DestinationField::folder() const
{
    if (line_->text() == readableName(exact_)) return exact_;
    const QString text = line_->text().trimmed();
    if (text.isEmpty()) return QString();
    if (text == u"~" || text.startsWith(u"~/")) return QDir::homePath() + text.mid(1);
    return QDir::home().absoluteFilePath(text);
}

void DestinationField::setFolder(const QString& folder)
{
    exact_ = folder;
    line_->setText(readableName(folder));
}

void DestinationField::setPlace(Place place)
{
    const bool used = place == Place::Folder, beside = place == Place::BesideSources;
    const QString why = beside ? u"The outputs stand beside their sources now"_s : u"No folder is asked for now"_s;
    setEnabled(used);
    showHintWhereDisabled(*line_);
    line_->setPlaceholderText(used ? askedFor : beside ? u"beside the sources"_s : u"none is needed"_s);
    line_->setToolTip(used ? u"All outputs are written to this folder. Type it, choose it or drop it here."_s : why);
    setToolTip(used ? QString() : why);
}

void DestinationField::setMissing(bool missing)
{
    makeButton_->setEnabled(missing);
    makeButton_->setToolTip(missing ? u"Make the folder, with those above it that are not there"_s
                                    : u"For a folder that is not there"_s);
}

void DestinationField::make()
{
    if (!makeDirectories(folder()))
        panels().runAlert(u"The folder could not be made"_s,
                          u"%1 could not be made. Choose a place that you may write to."_s.arg(readableName(folder())),
                          u"OK"_s);
    if (changed_) changed_(folder());
}

void DestinationField::choose()
{
    OpenPanelRequest request;
    request.title = u"Choose output directory"_s;
    request.canChooseFiles = false;
    request.canChooseDirectories = true;
    request.canCreateDirectories = true;
    const auto chosen = panels().openPanel(request);
    if (chosen && !chosen->isEmpty()) setFolder(chosen->first());
}

bool DestinationField::eventFilter(QObject* watched, QEvent* event)
{
    const bool enters = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!enters && event->type() != QEvent::Drop) return QWidget::eventFilter(watched, event);
    auto& drop = *static_cast<QDropEvent*>(event);
    const QString folder = droppedFolder(drop);
    // Anything else is not this field's: the page takes it for its list.
    if (folder.isEmpty())
        drop.ignore();
    else
        acceptAsCopy(drop);
    if (!enters && !folder.isEmpty()) setFolder(folder);
    return true;
}

} // namespace zolt
