#include "ui/pages/OutlookLine.h"

#include "platform/errors/Exceptions.h"
#include "shell/Wording.h"
#include "ui/PlainText.h"
#include "ui/Symbols.h"
#include "ui/TextSides.h"
#include "ui/WrappedText.h"

#include <QPushButton>
#include <QStyle>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 6; // units between the buttons
constexpr int problemLines = 2;

} // namespace

OutlookLine::OutlookLine(QWidget* parent)
    : QWidget(parent), leaveOutButton_(button(u"leaveOutButton"_s, u"&Leave Them Out"_s,
                                              u"Keep these files in the list and start the others without them"_s,
                                              &OutlookLine::leaveOut)),
      showButton_(button(u"showProblemButton"_s, u"&Select Them"_s,
                         u"Select the files in the list that this is about"_s, &OutlookLine::showRows)),
      nextButton_(
          button(u"nextProblemButton"_s, QString(), u"Show the next of what stands against it"_s, &OutlookLine::next)),
      takeBackButton_(button(u"takeBackButton"_s, u"P&ut Them Back"_s, u"Count the files in again that were left out"_s,
                             &OutlookLine::takeBack))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(u"What will happen"_s);
    refresh();
}

QPushButton* OutlookLine::button(const QString& name, const QString& text, const QString& toolTip,
                                 void (OutlookLine::*press)())
{
    auto* const made = new QPushButton(text, this);
    made->setObjectName(name);
    made->setToolTip(toolTip);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, [this, press] { guarded("outlook", [&] { (this->*press)(); }); });
    return made;
}

void OutlookLine::show(const Outlook& outlook, qsizetype leftOut)
{
    if (outlook == outlook_ && leftOut == leftOut_) return;
    outlook_ = outlook;
    leftOut_ = leftOut;
    shown_ = 0;
    refresh();
}

const OutlookProblem* OutlookLine::problem() const
{
    return shown_ < outlook_.problems.size() ? &outlook_.problems[shown_] : nullptr;
}

QString OutlookLine::text() const
{
    QStringList lines(outlook_.intention);
    if (leftOut_ > 0) lines += u"%1 left out"_s.arg(counted(leftOut_, u"file"_s));
    return (lines + outlook_.sentences()).join(u'\n').trimmed();
}

void OutlookLine::leaveOut()
{
    if (problem() && leaveOut_) leaveOut_(Rows(problem()->rows));
}

void OutlookLine::takeBack()
{
    if (takeBack_) takeBack_();
}

void OutlookLine::showRows()
{
    if (problem() && showRows_) showRows_(Rows(problem()->rows));
}

void OutlookLine::next()
{
    shown_ = (shown_ + 1) % std::max<std::size_t>(outlook_.problems.size(), 1);
    refresh();
}

void OutlookLine::refresh()
{
    const bool aboutRows = problem() && !problem()->rows.isEmpty();
    leaveOutButton_->setVisible(aboutRows && problem()->kind != OutlookProblem::Kind::PassedOver);
    showButton_->setVisible(aboutRows);
    nextButton_->setVisible(outlook_.problems.size() > 1);
    showWords(*nextButton_, u"%1 of %2 ›"_s.arg(shown_ + 1).arg(outlook_.problems.size()));
    takeBackButton_->setVisible(leftOut_ > 0);
    QStringList told = problem() ? QStringList(problem()->text) + problem()->details : QStringList();
    setToolTip(plainToolTip((QStringList(outlook_.intention) + told).join(u"\n"_s).trimmed()));
    setAccessibleDescription(text());
    placeButtons();
    update();
}

int OutlookLine::lineHeight() const
{
    return fontMetrics().lineSpacing();
}

void OutlookLine::placeButtons()
{
    int end = width();
    for (QPushButton* const each : {takeBackButton_, nextButton_, showButton_, leaveOutButton_}) {
        if (each->isHidden()) continue;
        const QSize size = each->sizeHint();
        end -= size.width();
        QRect place(end, height() - size.height(), size.width(), size.height());
        if (isRightToLeft()) place.moveLeft(width() - place.right() - 1);
        each->setGeometry(place);
        end -= gap;
    }
    textRoom_ = std::max(0, end);
}

void OutlookLine::resizeEvent(QResizeEvent*)
{
    placeButtons();
}

QSize OutlookLine::sizeHint() const
{
    const int below = std::max(problemLines * lineHeight(), nextButton_->sizeHint().height());
    return {320, lineHeight() + below + 2};
}

QSize OutlookLine::minimumSizeHint() const
{
    return {160, sizeHint().height()};
}

void OutlookLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int line = lineHeight();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // a sentence goes by its words, its place by the window
    const auto onSide = [this](QRect place) {
        if (isRightToLeft()) place.moveLeft(width() - place.right() - 1);
        return place;
    };
    const auto side = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter));
    QString intention = outlook_.intention;
    if (leftOut_ > 0) intention += u"; %1 left out"_s.arg(counted(leftOut_, u"file"_s));
    // Alone it stands at the height of the action beside it, over a problem at the top.
    const QRect top(0, problem() ? 0 : height() - line - line / 4, problem() ? width() : textRoom_, line);
    painter.drawText(onSide(top), side, fontMetrics().elidedText(intention, Qt::ElideRight, top.width()));
    if (!problem()) return;
    painter.setRenderHint(QPainter::Antialiasing);
    const int middle = height() - line * problemLines - 1;
    paintSymbol(painter, u"dialog-warning"_s, onSide(QRect(0, middle, line, line)),
                palette().color(QPalette::WindowText));
    QRect place(line + 4, middle, std::max(0, textRoom_ - line - 4), line);
    for (const QString& each : wrapped(problem()->text, font(), place.width(), problemLines)) {
        painter.drawText(onSide(place), side, each);
        place.translate(0, line);
    }
}

} // namespace zolt
