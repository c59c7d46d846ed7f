#include "ui/runs/RunFoot.h"

#include "platform/errors/Exceptions.h"
#include "ui/runs/RunTexts.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int milliseconds = 250;

} // namespace

RunFoot::RunFoot(QWidget* parent)
    : QWidget(parent), label_(new QLabel(this)),
      queueButton_(button(u"footQueueButton"_s, u"Show Queue"_s, u"Bring the queue to the front (Ctrl+J)"_s,
                          &Actions::showQueue)),
      showButton_(button(u"footShowButton"_s, u"Show"_s,
                         u"List the files of the last run with their reports (Ctrl+H)"_s, &Actions::showRun)),
      retryButton_(button(u"footRetryButton"_s, u"Retry Failed"_s,
                          u"Put the failed files back into the list of their tab (Ctrl+R)"_s, &Actions::retryFailed))
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    label_->setObjectName(u"footLabel"_s);
    label_->setTextFormat(Qt::PlainText);
    row->addWidget(label_, 1);
    for (QPushButton* const each : {queueButton_, showButton_, retryButton_})
        row->addWidget(each);
    setFixedHeight(queueButton_->sizeHint().height());
    timer_.setInterval(milliseconds);
    connect(&timer_, &QTimer::timeout, this, [this] { guarded("foot", [this] { refresh(); }); });
    refresh();
}

RunFoot::~RunFoot()
{
    if (record_) record_->removeListener(this);
}

QPushButton* RunFoot::button(const QString& name, const QString& text, const QString& toolTip,
                             std::function<void()> Actions::*action)
{
    auto* const made = new QPushButton(text, this);
    made->setObjectName(name);
    made->setToolTip(toolTip);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, [this, action] {
        guarded("foot", [&] {
            if (actions_.*action) (actions_.*action)();
        });
    });
    return made;
}

void RunFoot::setRecord(RunRecord* record, Actions actions)
{
    if (record_) record_->removeListener(this);
    record_ = record;
    actions_ = std::move(actions);
    if (record_) record_->addListener(this);
    refresh();
}

QString RunFoot::text() const
{
    return label_->text();
}

void RunFoot::runBegan(const Run&)
{
    timer_.start();
    refresh();
}

void RunFoot::runEnded(const Run&)
{
    timer_.stop();
    refresh();
    QAccessibleEvent told(label_, QAccessible::Alert); // read aloud without a look
    QAccessible::updateAccessibility(&told);
}

void RunFoot::refresh()
{
    const Run* const run = record_ ? record_->current() : nullptr;
    const bool atWork = record_ && record_->isRunning();
    label_->setText(atWork ? u"Queue: "_s + record_->progressInWords() : run ? shortWords(*run) : QString());
    queueButton_->setVisible(atWork);
    showButton_->setVisible(run && !atWork);
    retryButton_->setVisible(run && !atWork && run->failedRows() > 0);
}

} // namespace zolt
