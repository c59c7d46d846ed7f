// The tabs of a window.
#pragma once

#include "platform/controls/Pane.h"

#include <memory>
#include <vector>

namespace zolt {

/// One tab, known by its label.
class TabViewItem
{
public:
    explicit TabViewItem(QString label) : label_(std::move(label)) {}
    const QString& label() const { return label_; }
    /// What is shown while the tab is in front.
    const std::shared_ptr<Pane>& view() const { return view_; }

private:
    const QString label_;
    const std::shared_ptr<Pane> view_ = std::make_shared<Pane>();
};

/// Main thread.
class TabView : public Control
{
public:
    using Item = std::shared_ptr<TabViewItem>;

    /// Appends a tab; the first one is selected.
    void addTabViewItem(const Item& item) { items_.push_back(item); }
    const std::vector<Item>& items() const { return items_; }

    /// The tab in front; none while there are none.
    Item selectedTabViewItem() const;
    int selectedIndex() const { return selected_; }
    /// Brings a tab to the front and tells the delegate, also where it is in front already; an index past the tabs is
    /// passed over.
    void selectTabViewItemAtIndex(int index);

    /// As the above by label; one that no tab has is passed over.
    void selectTabViewItemWithLabel(const QString& label);

    /// Told of each selection.
    void setDelegate(std::function<void(const Item&)> didSelect) { didSelect_ = std::move(didSelect); }

private:
    std::vector<Item> items_;
    int selected_ = 0;
    std::function<void(const Item&)> didSelect_;
};

} // namespace zolt
