// What the program asks of the desktop around it.
#pragma once

#include "platform/text/Text.h"

namespace zolt {

/// Every operation may be called on any thread and returns at once.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// Shows a short label on the program's icon; an absent one takes it away.
    virtual void setBadgeLabel(const OptionalText& label) = 0;

    /// Calls for the user's attention. @param level  10 informational, 0 critical
    virtual void requestUserAttention(int level) = 0;

    /// Asks the program to end, as its quit command does.
    virtual void terminate() = 0;
};

/// The front end's desktop; one that does nothing where none is installed. Any thread.
Desktop& desktop();

/// Sets the desktop that desktop() gives; nullptr for none. The object stays the caller's and outlives its
/// installation.
void installDesktop(Desktop* desktop);

} // namespace zolt
