// The hash by which the cache finds texts.
#pragma once

#include <QStringView>

#include <cstddef>

namespace zolt {

/// The hash of a text's UTF-16 units, the same however the text is kept. Good for one run of the program only.
/// Four independent lanes, since every search of a new piece of console text waits for this: a console line takes a
/// third of the time that Qt's hash with the seed 0 does.
std::size_t hashOfUnits(QStringView units);

} // namespace zolt
