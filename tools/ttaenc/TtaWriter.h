// Lays compressed frames out as a TTA file.
#pragma once

#include "audio/Output.h"
#include "ttaenc/TtaHeader.h"

#include <cstdio>

namespace zolt::companion {

/// The lengths of all frames stand ahead of the first. Where their count is known and the output can be sought, room
/// is left for them; else the frames wait in a temporary file.
class TtaWriter
{
public:
    /// @param output   outlives this object
    /// @param samples  a channel; nothing where it is not known yet
    TtaWriter(Output& output, const PcmFormat& format, std::optional<std::uint32_t> samples);

    /// @param samples  a channel
    void add(const std::uint8_t* frame, std::size_t bytes, std::uint32_t samples);

    /// Ends the file.
    /// @throws Failure
    void finish();

private:
    struct Close
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    void copyWaiting();
    Bytes start() const;

    Output& output_;
    TtaHeader header_;
    std::vector<std::uint32_t> lengths_;
    std::unique_ptr<std::FILE, Close> waiting_; ///< empty where room was left
};

} // namespace zolt::companion
