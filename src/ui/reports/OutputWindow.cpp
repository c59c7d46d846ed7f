#include "ui/reports/OutputWindow.h"

#include "engine/OutputWindowController.h"
#include "engine/ReportVerdict.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "ui/Fonts.h"
#include "ui/Symbols.h"
#include "ui/binding/WindowBinding.h"
#include "ui_OutputWindow.h"

#include <QScreen>
#include <QShortcut>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QPoint firstPlace(60, 60); // of a window whose distance is zero, from the screen's corner

/// Where a window of that distance goes; a long cascade begins again before it leaves the screen.
QPoint placeOnScreen(const QScreen& screen, QPointF distance, QSize size)
{
    const QRect room =
        screen.availableGeometry().adjusted(firstPlace.x(), firstPlace.y(), -size.width(), -size.height());
    const QPoint step = distance.toPoint();
    return room.topLeft() + QPoint(step.x() % std::max(room.width(), 1), step.y() % std::max(room.height(), 1));
}

} // namespace

OutputWindow::OutputWindow(OutputWindowController& controller)
    : form_(std::make_unique<Ui::OutputWindow>()), model_(controller.window()), text_(controller.textField())
{
    setAttribute(Qt::WA_DeleteOnClose);
    form_->setupUi(this);
    form_->findButton->setIcon(symbolIcon(u"edit-find"_s));
    form_->saveButton->setIcon(symbolIcon(u"document-save-as"_s));
    form_->findBar->setView(form_->textField);
    addKeys();
    text_->setObserver(this);
    controlChanged(*text_);
    auto* const binding = new WindowBinding(*this, model_);
    binding->setComingUp([this] { place(); });
}

OutputWindow::~OutputWindow()
{
    text_->setObserver(nullptr);
}

void OutputWindow::addKeys()
{
    const auto key = [this](const QKeySequence& keys, auto work) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
    };
    const auto find = [this] { form_->findBar->open(); };
    const auto save = [this] { guarded("save report", [this] { saveAs(); }); };
    key(QKeySequence(u"Ctrl+F"_s), find);
    key(QKeySequence(u"F3"_s), [this] { form_->findBar->find(false); });
    key(QKeySequence(u"Ctrl+S"_s), save);
    key(QKeySequence(u"Ctrl+W"_s), [this] { close(); });
    key(QKeySequence(u"Escape"_s), [this] { escape(); });
    connect(form_->findButton, &QPushButton::clicked, this, find);
    connect(form_->saveButton, &QPushButton::clicked, this, save);
}

void OutputWindow::controlChanged(Control&)
{
    const QString report = text_->string();
    form_->textField->setFont(shownFont(text_->font()));
    form_->textField->setPlainText(report);
    form_->countLabel->setText(inWords(verdictOf(report)));
}

void OutputWindow::place()
{
    const QScreen* const onScreen = screen();
    if (onScreen) move(placeOnScreen(*onScreen, model_->frameTopLeftPoint(), frameSize()));
    form_->textField->setFocus();
}

void OutputWindow::escape()
{
    if (form_->findBar->isVisible())
        form_->findBar->close();
    else
        close();
}

void OutputWindow::saveAs()
{
    SavePanelRequest request;
    request.title = u"Save report"_s;
    request.fileName = model_->title().replace(u'/', u'-') + u".txt"_s;
    const auto path = panels().savePanel(request);
    if (!path || writeTextAtomically(*path, text_->string())) return;
    panels().runAlert(u"The report could not be saved"_s,
                      u"%1 could not be written. Choose a folder that you may write to and that has room."_s.arg(*path),
                      u"OK"_s);
}

} // namespace zolt
