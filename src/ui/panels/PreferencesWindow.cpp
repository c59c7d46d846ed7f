#include "ui/panels/PreferencesWindow.h"

#include "platform/errors/Exceptions.h"
#include "shell/PreferencesController.h"
#include "ui/Symbols.h"
#include "ui/TabOrder.h"
#include "ui/TextSides.h"
#include "ui/WindowPlaces.h"
#include "ui/binding/Bindings.h"
#include "ui/binding/WindowBinding.h"
#include "ui_Preferences.h"

#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString placeName = u"preferences"_s;

/// Where the widgets of a page stand when it has all the height that they ask for.
Pane::Frames framesOn(const QWidget& page, int width)
{
    QLayout& layout = *page.layout();
    layout.invalidate();
    const int height = layout.hasHeightForWidth() ? layout.totalHeightForWidth(width) : layout.totalSizeHint().height();
    layout.setGeometry(QRect(0, 0, width, height));
    Pane::Frames frames;
    for (const QWidget* widget : page.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        frames.emplace_back(widget->geometry());
    return frames;
}

QToolButton* buttonFor(const ToolbarItem& item, QWidget& parent)
{
    auto* const button = new QToolButton(&parent);
    button->setObjectName(item.identifier + u"Item"_s);
    button->setText(u'&' + item.label);
    button->setIcon(symbolIcon(item.image));
    button->setIconSize(QSize(24, 24));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setCheckable(true);
    button->setAutoExclusive(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

PreferencesWindow::PreferencesWindow(PreferencesController& preferences)
    : form_(std::make_unique<Ui::Preferences>()), preferences_(preferences)
{
    form_->setupUi(this);
    bindControls();
    readyPanes();
    preferences_.preferencesTab()->setObserver(this);
    restorePlace(*this, placeName);
    for (const char* key : {"Escape", "Ctrl+W"})
        connect(new QShortcut(QKeySequence(QLatin1String(key)), this), &QShortcut::activated, this, &QWidget::close);
    connect(&movement_, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& size) { resize(size.toSize()); });
    keepTextsOnTheirSide(*this);
    orderTabsByLayout(*form_->preferencesTab);
    auto* const binding = new WindowBinding(*this, preferences_.window());
    binding->setComingUp([this] { comeUp(); });
    binding->setFramed([this] { followFrame(); });
}

PreferencesWindow::~PreferencesWindow()
{
    preferences_.preferencesTab()->setObserver(nullptr);
    if (const auto& toolbar = preferences_.window()->toolbar()) toolbar->setObserver(nullptr);
    for (const auto& item : preferences_.preferencesTab()->items())
        item->view()->setMeasure(nullptr);
}

void PreferencesWindow::bindControls()
{
    // The number stands in the stepper's own field.
    form_->maxThreadsStepper->findChild<QLineEdit*>()->setObjectName(u"maxThreadsStepperText"_s);
    Bindings bindings(*this);
    bindings.setChanged([this] { fitNote(); });
    for (const Outlet& outlet : preferences_.outlets())
        bindings.bind(outlet);
}

void PreferencesWindow::readyPanes()
{
    for (const auto& item : preferences_.preferencesTab()->items()) {
        const QWidget* const page = form_->preferencesTab->findChild<QWidget*>(item->label());
        item->view()->setMeasure([this, page] { return framesOn(*page, form_->preferencesTab->width()); });
    }
}

void PreferencesWindow::readyToolbar()
{
    const auto toolbar = preferences_.window()->toolbar();
    if (!toolbar || !buttons_.isEmpty()) return;
    for (const auto& item : toolbar->items()) {
        QToolButton* const button = buttonFor(*item, *form_->toolbar);
        connect(button, &QToolButton::clicked, this, [toolbar, identifier = item->identifier] {
            guarded("preferences", [&] { toolbar->click(identifier); });
        });
        form_->toolbar->layout()->addWidget(button);
        buttons_.append(button);
    }
    static_cast<QBoxLayout*>(form_->toolbar->layout())->addStretch();
    toolbar->setObserver(this);
}

/// The note has its lines whole. It counts with the toolbar, since the model knows of nothing else beside the panes.
void PreferencesWindow::fitNote()
{
    const auto& toolbar = preferences_.window()->toolbar();
    if (!toolbar) return;
    QLabel& note = *form_->settingsNote;
    note.setFixedHeight(note.text().isEmpty() ? 0 : note.heightForWidth(width()));
    const double height = form_->toolbar->sizeHint().height() + note.height();
    if (toolbar->height() == height) return;
    toolbar->setHeight(height);
    if (isVisible()) preferences_.resizePreferencesPane();
}

void PreferencesWindow::controlChanged(Control&)
{
    form_->preferencesTab->setCurrentIndex(preferences_.preferencesTab()->selectedIndex());
    const auto& toolbar = preferences_.window()->toolbar();
    for (int index = 0; index < buttons_.size(); ++index)
        buttons_[index]->setChecked(toolbar->items()[std::size_t(index)]->identifier ==
                                    toolbar->selectedItemIdentifier());
}

void PreferencesWindow::comeUp()
{
    readyToolbar();
    if (const auto& toolbar = preferences_.window()->toolbar()) controlChanged(*toolbar);
    resize(std::max(width(), form_->preferencesTab->sizeHint().width()), height());
    fitToScreen(*this);
    fitNote();
    layout()->activate();
    tellFrame();
    preferences_.resizePreferencesPane();
    followFrame();
    placeBesideActive(*this);
}

/// The model's frame has its y upwards, and the title bar above what the widget has.
void PreferencesWindow::tellFrame()
{
    const QRect place = geometry();
    preferences_.window()->setFrame({double(place.x()), -double(place.y() + place.height()), double(place.width()),
                                     place.height() + Window::titleBarHeight});
}

void PreferencesWindow::followFrame()
{
    const Window& model = *preferences_.window();
    const QSize size = Window::contentRectForFrameRect(model.frame()).size().toSize();
    const bool moves = movement_.state() == QAbstractAnimation::Running;
    if (moves && movement_.endValue().toSize() == size) return;
    movement_.stop();
    if (size == this->size()) return;
    const int milliseconds = model.animatesFrame() && isVisible()
                                 ? style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this)
                                 : 0;
    if (milliseconds == 0) return resize(size);
    movement_.setDuration(milliseconds);
    movement_.setStartValue(this->size());
    movement_.setEndValue(size);
    movement_.start();
}

void PreferencesWindow::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    if (movement_.state() != QAbstractAnimation::Running) tellFrame();
}

void PreferencesWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (movement_.state() != QAbstractAnimation::Running) tellFrame();
}

void PreferencesWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) keepPlace(*this, placeName);
}

} // namespace zolt
