// What needs the codec libraries. They bring more than a hundred others with them, so they stand in a module of their
// own, which is opened when the first compressed file, or the first conversion of samples, asks for it.
#pragma once

#include "platform/audio/Container.h"
#include "platform/audio/EncodingSink.h"
#include "platform/audio/SampleSource.h"

namespace zolt {

/// Stateless; any thread.
class Codecs
{
public:
    virtual ~Codecs() = default;

    /// Opens a file through a demuxer: linear data (CAF, AU) is then read as bytes, other data decoded.
    virtual AudioStatus openSource(QFile& file, Container container, std::unique_ptr<SampleSource>& source) const = 0;

    /// Gives the sink of an M4A file; the file is not touched yet.
    /// @return UnsupportedFormat for data that the encoder would alter
    virtual AudioStatus makeSink(const QString& path, const AudioFormat& format,
                                 std::unique_ptr<EncodingSink>& sink) const = 0;

    /// @return UnsupportedFormat if there is no way from one shape to the other
    virtual AudioStatus makeTransform(const SampleShape& from, const SampleShape& to, int channels,
                                      std::unique_ptr<SampleTransform>& transform) const = 0;
};

/// The module, opened by the first call; it stays open. Any thread.
/// @return nothing where it is missing, which is logged once
const Codecs* codecs();

} // namespace zolt
