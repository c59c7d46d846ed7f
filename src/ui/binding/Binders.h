// One way to bind each kind of control; Bindings finds the widget and chooses among them.
#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class QAbstractItemView;

namespace zolt {

class Button;
class CheckBox;
class ComboBox;
class ImageView;
class Matrix;
class ScrollView;
class Slider;
class Stepper;
class Table;
class TextField;
class TextView;

/// Called after a change of the model has been shown; may be empty.
using Changed = std::function<void()>;

// All of them: main thread. @throws AssertionException if the widget cannot show the model

/// Any button; its own text stays while the model has no title, as for the check box.
void bindWidget(QWidget& widget, const std::shared_ptr<Button>& model, const Changed& changed);
void bindWidget(QWidget& widget, const std::shared_ptr<CheckBox>& model, const Changed& changed);
/// A QComboBox, whether it can be typed in or not.
void bindWidget(QWidget& widget, const std::shared_ptr<ComboBox>& model, const Changed& changed);
/// A PictureView.
void bindWidget(QWidget& widget, const std::shared_ptr<ImageView>& model, const Changed& changed);
/// An empty widget is filled with a button a cell under the cells' titles, in the model's rows and columns; its
/// property "across" puts that many side by side instead, "cellToolTips" is a list with what each does. A widget that
/// has buttons has one a cell, in the order of the cells.
void bindWidget(QWidget& widget, const std::shared_ptr<Matrix>& model, const Changed& changed);
/// Any list, tree or text: it is drawn anew, at the model's place where that names one.
void bindWidget(QWidget& widget, const std::shared_ptr<ScrollView>& model, const Changed& changed);
/// A QSlider with a place for each step.
void bindWidget(QWidget& widget, const std::shared_ptr<Slider>& model, const Changed& changed);
/// A QSpinBox, which takes its range from the model; a number that is typed in reaches the model too.
void bindWidget(QWidget& widget, const std::shared_ptr<Stepper>& model, const Changed& changed);
/// A list or tree: asks the model's data source, tells it which rows are selected and runs its action.
void bindWidget(QWidget& widget, const std::shared_ptr<Table>& model, const Changed& changed);
/// A label, or a field or a box to type in; a label keeps its own text while the model has none. Texts are never
/// markup.
void bindWidget(QWidget& widget, const std::shared_ptr<TextField>& model, const Changed& changed);
/// A QPlainTextEdit; what is typed reaches the model.
void bindWidget(QWidget& widget, const std::shared_ptr<TextView>& model, const Changed& changed);

/// Hands the table the view's selected rows and runs its action, if they are others than it knows. Main thread.
void tellSelection(const QAbstractItemView& view, Table& table);

} // namespace zolt
