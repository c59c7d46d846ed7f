// The texts of a record one by one, for whoever goes through them.
#pragma once

#include "tags/TagsObject.h"

#include <span>
#include <vector>

namespace zolt {

/// One text of the record, and what it is called.
struct TagField
{
    QString outlet; ///< of the tab and of the record
    QString word;   ///< for sentences
    QString option; ///< on a command line, and in what is printed for other programs
    const OptionalText& (TagsObject::*text)() const;
    void (TagsObject::*setText)(OptionalText);

    QString textOf(const TagsObject& tags) const { return textOrEmpty((tags.*text)()); }
};

/// All eleven; title and track first. Any thread.
const std::vector<TagField>& tagFields();

/// Those that several files can share: all but title and track.
std::span<const TagField> sharedTagFields();

} // namespace zolt
