#include "ui/reports/ReportPane.h"

#include "engine/ReportVerdict.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "ui/Fonts.h"
#include "ui/Symbols.h"
#include "ui/bus/FileManager.h"
#include "ui_ReportPane.h"

#include <QBoxLayout>
#include <QTextBlock>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int linesAbove = 2; // of the report, left in sight above its first bad line

QTextBlock firstBad(const ReportView& report)
{
    QTextBlock block = report.document()->begin();
    while (block.isValid() && !report.isBad(block))
        block = block.next();
    return block;
}

} // namespace

ReportPane::ReportPane(QWidget* parent) : QWidget(parent), form_(std::make_unique<Ui::ReportPane>())
{
    form_->setupUi(this);
    form_->findButton->setIcon(symbolIcon(u"edit-find"_s));
    form_->saveButton->setIcon(symbolIcon(u"document-save-as"_s));
    form_->findBar->setView(form_->textField);
    QFont bold = form_->causeLabel->font();
    bold.setBold(true);
    form_->causeLabel->setFont(bold);
    setFocusProxy(form_->textField);
    wire();
}

ReportPane::~ReportPane() = default;

void ReportPane::wire()
{
    connect(form_->findButton, &QPushButton::clicked, this, &ReportPane::openFind);
    connect(form_->saveButton, &QPushButton::clicked, this, [this] { guarded("save", [this] { saveAs(); }); });
    connect(form_->folderButton, &QPushButton::clicked, this, [this] { showInFolder(facts_.source); });
    connect(form_->badBox, &QCheckBox::toggled, this, &ReportPane::showBadLines);
    connect(form_->wrapBox, &QCheckBox::toggled, this, [this](bool wraps) {
        form_->textField->setLineWrapMode(wraps ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    });
}

void ReportPane::setReport(const QString& title, const QString& report, const ReportFacts& facts)
{
    title_ = title;
    report_ = report;
    facts_ = facts;
    const ReportVerdict verdict = verdictOf(report, facts.notes);
    form_->textField->setReport(report, facts.notes);
    form_->countLabel->setText(report.isEmpty() ? QString() : inWords(verdict));
    arrange();
    form_->causeLabel->setText(verdict.cause);
    form_->causeLabel->setVisible(!verdict.cause.isEmpty());
    form_->folderButton->setEnabled(!facts.source.isEmpty());
    form_->folderButton->setToolTip(facts.source.isEmpty() ? u"No file is known for this"_s
                                                           : u"Show the file that the report is about in its folder"_s);
    form_->badBox->setEnabled(verdict.failed());
    for (QPushButton* const each : {form_->findButton, form_->saveButton})
        each->setEnabled(!report.isEmpty());
    showBadLines(form_->badBox->isChecked() && verdict.failed());
    scrollPastBanner();
}

QSize ReportPane::minimumSizeHint() const
{
    const QSize size = QWidget::minimumSizeHint();
    return {std::max(form_->linesRow->minimumSize().width(), form_->actionsRow->minimumSize().width()), size.height()};
}

void ReportPane::arrange()
{
    constexpr int more = 8; // units that a label takes beside its words
    const QFontMetrics letters = form_->countLabel->fontMetrics();
    const int usual = letters.horizontalAdvance(u"1,000 OK, 100 failed"_s); // from report to report nothing moves
    int lines = std::max(usual, letters.horizontalAdvance(form_->countLabel->text())) + more;
    for (const QWidget* const box : {form_->badBox, form_->wrapBox})
        lines += form_->linesRow->spacing() + box->sizeHint().width();
    const bool narrow = lines + form_->topRow->spacing() + form_->actionsRow->sizeHint().width() > width();
    const auto direction = narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
    if (form_->topRow->direction() == direction) return;
    form_->topRow->setDirection(direction);
    layout()->activate(); // at once: it would jump
}

void ReportPane::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

void ReportPane::setFont(const Font& font)
{
    form_->textField->setFont(shownFont(font));
}

void ReportPane::showBadLines(bool only)
{
    QTextDocument& document = *form_->textField->document();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        block.setVisible(!only || form_->textField->isBad(block));
    document.markContentsDirty(0, document.characterCount());
    form_->textField->viewport()->update();
}

void ReportPane::scrollPastBanner()
{
    QTextBlock block = firstBad(*form_->textField);
    if (!block.isValid()) return;
    for (int line = 0; line < linesAbove && block.previous().isValid(); ++line)
        block = block.previous();
    form_->textField->moveCursor(QTextCursor::End); // so that the block comes to the top, not to the bottom
    form_->textField->setTextCursor(QTextCursor(block));
}

void ReportPane::saveAs()
{
    saveText(u"Save report"_s,
             (title_.isEmpty() ? window()->windowTitle() : QString(title_)).replace(u'/', u'-') + u".txt"_s, report_);
}

void ReportPane::openFind()
{
    form_->findBar->open();
}

void ReportPane::findNext()
{
    form_->findBar->find(false);
}

bool ReportPane::closeFind()
{
    const bool open = form_->findBar->isVisible();
    if (open) form_->findBar->close();
    return open;
}

void saveText(const QString& panelTitle, const QString& fileName, const QString& text)
{
    SavePanelRequest request;
    request.title = panelTitle;
    request.fileName = fileName;
    if (const auto path = panels().savePanel(request)) saveTextTo(*path, text);
}

void saveTextTo(const QString& path, const QString& text)
{
    if (writeTextAtomically(path, text)) return;
    panels().runAlert(u"The file could not be saved"_s,
                      u"%1 could not be written. Choose a folder that you may write to and that has room."_s.arg(path),
                      u"OK"_s);
}

} // namespace zolt
