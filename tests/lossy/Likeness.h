// How much a decoded file sounds like what it was made from.
#pragma once

#include <QByteArray>

namespace zolt::test {

/// Interleaved 16-bit samples of either side; the one is shifted against the other to where both are most alike.
/// @return how far the difference lies below the source, in decibels; 0 or less for different sounds
double likeness(const QByteArray& source, const QByteArray& decoded, int channels);

} // namespace zolt::test
