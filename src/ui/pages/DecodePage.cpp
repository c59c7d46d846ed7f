#include "ui/pages/DecodePage.h"

#include "decode/DecodeTab.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "shell/Outlook.h"
#include "ui/binding/Bindings.h"
#include "ui/files/FilesPanel.h"
#include "ui/pages/OutlookLine.h"
#include "ui_DecodeTab.h"

#include <QEvent>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int milliseconds = 60; // several changes in a row are looked at once

void makeBold(QLabel& heading)
{
    QFont font = heading.font();
    font.setBold(true);
    heading.setFont(font);
}

} // namespace

DecodePage::DecodePage(DecodeTab& tab, QWidget* parent)
    : TabPage(parent), form_(std::make_unique<Ui::DecodeTab>()), tab_(tab)
{
    form_->setupUi(this);
    for (QLabel* const heading : {form_->formatLabel, form_->flacOptionsLabel, form_->outputLabel})
        makeBold(*heading);
    bindOutlets();
    pause_.setSingleShot(true);
    pause_.setInterval(milliseconds);
    connect(&pause_, &QTimer::timeout, this, [this] { guarded("outlook", [this] { lookAhead(); }); });
    connect(form_->commandButton, &QPushButton::clicked, this,
            [this] { guarded("decode", [this] { pressCommand(); }); });
    form_->filesPanel->setChanged([this] { refreshOutlook(); });
    form_->filesPanel->attach(tab_);
}

DecodePage::~DecodePage() = default;

void DecodePage::bindOutlets()
{
    Bindings bindings(*this);
    bindings.setChanged([this] { refreshOutlook(); });
    bindings.bind(u"outputFormatMatrix"_s, tab_.outputFormatMatrix);
    bindings.bind(u"flacOptionsLabel"_s, tab_.flacOptionsLabel);
    bindings.bind(u"decodeFlacThroughErrors"_s, tab_.decodeFlacThroughErrors);
    bindings.bind(u"flacKeepForeignMetadataButton"_s, tab_.flacKeepForeignMetadataButton);
    bindings.bind(u"sourceDecodeButton"_s, tab_.sourceDecodeButton);
    bindings.bind(u"deleteOriginalsButton"_s, tab_.deleteOriginalsButton);
}

void DecodePage::addFiles()
{
    form_->filesPanel->addFiles();
}

QString DecodePage::commandName() const
{
    return form_->commandButton->text();
}

void DecodePage::changeEvent(QEvent* event)
{
    TabPage::changeEvent(event);
    // While the window was elsewhere, files may have come or gone.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) refreshOutlook();
}

void DecodePage::refreshOutlook()
{
    const bool empty = tab_.fileNames().isEmpty();
    form_->commandButton->setEnabled(!empty);
    form_->commandButton->setToolTip(empty ? u"Add files first"_s : u"Decode the files in the list (Ctrl+Return)"_s);
    pause_.start();
}

void DecodePage::lookAhead()
{
    lookingAhead_.start([this, plan = tab_.workPlan()](const std::atomic<bool>& stop) {
        const Outlook outlook = outlookOf(plan, LocalDisk(), stop);
        return [this, outlook] { form_->outlook->show(outlook.intention, outlook.sentences()); };
    });
}

bool DecodePage::canStart(const WorkPlan& plan) const
{
    if (plan.items.empty()) {
        panels().runAlert(u"Nothing in the list can be decoded"_s,
                          u"This version does not decode files of these formats. They stay in the list."_s, u"OK"_s);
        return false;
    }
    return toolsAreThere(tab_);
}

void DecodePage::pressCommand()
{
    const WorkPlan plan = tab_.workPlan();
    if (plan.files.isEmpty() || !canStart(plan)) return;
    // Formats that the tab takes and this version has no decoder for; what is no audio file is skipped without a word.
    QList<qsizetype> unsupported = plan.passedOver;
    unsupported.removeIf([&](qsizetype row) { return path::extension(plan.files[row]).isEmpty(); });
    tab_.executeCommandWithout(unsupported);
}

} // namespace zolt
