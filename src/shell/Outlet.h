// What a tab shows: the control models that a window binds to widgets of the same names.
#pragma once

#include <QString>

#include <memory>
#include <variant>
#include <vector>

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

/// One kind of control for each alternative; a page has one way to bind each.
using OutletModel = std::variant<std::shared_ptr<Button>, std::shared_ptr<CheckBox>, std::shared_ptr<ComboBox>,
                                 std::shared_ptr<ImageView>, std::shared_ptr<Matrix>, std::shared_ptr<ScrollView>,
                                 std::shared_ptr<Slider>, std::shared_ptr<Stepper>, std::shared_ptr<Table>,
                                 std::shared_ptr<TextField>, std::shared_ptr<TextView>>;

struct Outlet
{
    QString name; ///< of the tab's field and of the widget
    OutletModel model;
};

using Outlets = std::vector<Outlet>;

} // namespace zolt
