// shntool prints the head of a line, which names the files, in small pieces, and its backspaces one by one.
#pragma once

#include "engine/console/ConsoleDialect.h"

namespace zolt {

/// Gives the head of a line whole: up to the " : " behind the names and times of the files, or up to the line's end.
/// A line that begins with no letter has none. What stands behind the last head of a piece waits for the next one, so
/// that no number is read as part of a head. Backspaces alone are no piece. Tables come in blocks that end anywhere: a
/// character that a block cuts waits for its other half.
class ShntoolDialect : public ConsoleDialect
{
public:
    QByteArray complete(const QByteArray& piece) override;
    QByteArray rest() override { return std::exchange(held_, {}); }

private:
    qsizetype wholeUpTo();

    QByteArray held_;
    bool inHead_ = true; // held_ starts with the head of a line, else within a line
};

} // namespace zolt
