// The row of choices at the top of a window.
#pragma once

#include "platform/controls/Control.h"

#include <QStringList>

#include <vector>

namespace zolt {

class Toolbar;

/// One choice. Main thread, as all of this file.
struct ToolbarItem
{
    QString identifier;
    QString label = {};
    QString image = {};                                  ///< name of the drawing
    std::function<void(const ToolbarItem&)> action = {}; ///< what a person's click does
};

/// Who knows what stands in a toolbar.
class ToolbarDelegate
{
public:
    virtual ~ToolbarDelegate() = default;
    /// What stands in it, from the left.
    virtual QStringList toolbarDefaultItemIdentifiers(const Toolbar& toolbar) = 0;
    /// What may stand in it.
    virtual QStringList toolbarAllowedItemIdentifiers(const Toolbar& toolbar) = 0;
    /// What stays marked when it was clicked.
    virtual QStringList toolbarSelectableItemIdentifiers(const Toolbar& toolbar) = 0;
    /// The item of that identifier; nothing for one that the delegate does not know.
    /// @param inserted  whether it is about to be put into the toolbar
    virtual std::shared_ptr<ToolbarItem>
    toolbarItemForItemIdentifierWillBeInsertedIntoToolbar(Toolbar& toolbar, const QString& identifier,
                                                          bool inserted) = 0;
};

class Toolbar : public Control
{
public:
    using Item = std::shared_ptr<ToolbarItem>;

    explicit Toolbar(QString identifier) : identifier_(std::move(identifier)) {}

    const QString& identifier() const { return identifier_; }
    /// @param delegate  outlives the toolbar's use
    void setDelegate(ToolbarDelegate* delegate) { delegate_ = delegate; }
    ToolbarDelegate* delegate() const { return delegate_; }
    /// Asks the delegate for what stands in the toolbar; done when it is put on its window.
    void insertDefaultItems();
    const std::vector<Item>& items() const { return items_; }

    QString selectedItemIdentifier() const { return selected_; }
    void setSelectedItemIdentifier(const QString& identifier) { write(selected_, identifier); }
    bool isVisible() const { return !isHidden(); }
    /// In units; 0 until a front end has told it.
    double height() const { return height_; }
    void setHeight(double height) { height_ = height; }

    /// What a person's click does: marks the item, where the delegate lets it be marked, and performs its action.
    void click(const QString& identifier);

private:
    const QString identifier_;
    ToolbarDelegate* delegate_ = nullptr;
    std::vector<Item> items_;
    QString selected_;
    double height_ = 0.0;
};

} // namespace zolt
