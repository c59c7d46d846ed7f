// Recorded console text, fed as reads may deliver it.
#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

namespace zolt::test {

/// Calls `parse` with the transcript in one piece, and then once for each place where two reads can part it. A failed
/// expectation names the place.
void everyCut(const QByteArray& transcript, const std::function<void(const QList<QByteArray>& pieces)>& parse);

} // namespace zolt::test
