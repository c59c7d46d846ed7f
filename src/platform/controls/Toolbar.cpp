#include "platform/controls/Toolbar.h"

namespace zolt {

void Toolbar::insertDefaultItems()
{
    items_.clear();
    if (!delegate_) return;
    for (const QString& identifier : delegate_->toolbarDefaultItemIdentifiers(*this)) {
        const Item item = delegate_->toolbarItemForItemIdentifierWillBeInsertedIntoToolbar(*this, identifier, true);
        if (item) items_.push_back(item);
    }
    changed();
}

void Toolbar::click(const QString& identifier)
{
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const Item& each) { return each->identifier == identifier; });
    if (found == items_.end()) return;
    const Item item = *found;
    if (delegate_->toolbarSelectableItemIdentifiers(*this).contains(identifier)) setSelectedItemIdentifier(identifier);
    if (item->action) item->action(*item);
}

} // namespace zolt
