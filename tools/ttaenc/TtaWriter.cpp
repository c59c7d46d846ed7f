#include "ttaenc/TtaWriter.h"

#include "audio/Failure.h"

#include <cerrno>
#include <cstring>

namespace zolt::companion {

namespace {

constexpr std::size_t copiedAtOnce = 64 * 1024;

[[noreturn]] void cannotKeep()
{
    throw Failure(Fault::Write,
                  std::string("the temporary folder has no room for the frames: ") + std::strerror(errno));
}

} // namespace

TtaWriter::TtaWriter(Output& output, const PcmFormat& format, std::optional<std::uint32_t> samples)
    : output_(output), header_{.format = format}
{
    if (!samples || !output_.canRewrite()) {
        waiting_.reset(std::tmpfile());
        if (!waiting_) cannotKeep();
        return;
    }
    const std::size_t frames = TtaHeader{.format = format, .samples = *samples}.frames();
    output_.write(Bytes(ttaHeaderBytes + ttaTableBytes(std::vector<std::uint32_t>(frames)).size()));
}

void TtaWriter::add(const std::uint8_t* frame, std::size_t bytes, std::uint32_t samples)
{
    lengths_.push_back(std::uint32_t(bytes));
    header_.samples += samples;
    if (!waiting_)
        output_.write(frame, bytes);
    else if (std::fwrite(frame, 1, bytes, waiting_.get()) != bytes)
        cannotKeep();
}

Bytes TtaWriter::start() const
{
    Bytes bytes = ttaHeaderBytesOf(header_);
    const Bytes table = ttaTableBytes(lengths_);
    bytes.insert(bytes.end(), table.begin(), table.end());
    return bytes;
}

void TtaWriter::copyWaiting()
{
    if (std::fflush(waiting_.get()) != 0) cannotKeep();
    std::rewind(waiting_.get());
    Bytes part(copiedAtOnce);
    while (const std::size_t got = std::fread(part.data(), 1, part.size(), waiting_.get()))
        output_.write(part.data(), got);
    if (std::ferror(waiting_.get())) cannotKeep();
}

void TtaWriter::finish()
{
    if (waiting_) {
        output_.write(start());
        copyWaiting();
    } else {
        output_.rewrite(0, start());
    }
    output_.finish();
}

} // namespace zolt::companion
