#include "ttaenc/TtaReader.h"

#include <algorithm>
#include <thread>

namespace zolt::companion {

namespace {

/// One more than run at once: while a frame is written, the others go on.
std::size_t framesAtOnce(std::size_t frames)
{
    constexpr unsigned mostThreads = 8;
    const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1u, mostThreads);
    return std::min<std::size_t>(frames, threads > 1 ? threads + 1 : 1);
}

} // namespace

TtaReader::TtaReader(ByteSource& source)
    : source_(source), header_(readTtaHeader(source)), lengths_(readTtaTable(source, header_))
{
    for (std::size_t i = framesAtOnce(lengths_.size()); i > 0; --i)
        ahead_.push_back(std::make_unique<Ahead>(header_, source.name()));
}

void TtaReader::begin(Ahead& ahead, std::uint32_t frame)
{
    ahead.data = source_.take(lengths_[frame]);
    const auto decode = [&ahead, length = header_.samplesOf(frame)] {
        return ahead.decoder.decode(ahead.data, length, ahead.samples);
    };
    // Where no thread is to be had, it is done when it is asked for.
    constexpr auto onThread = std::launch::async | std::launch::deferred;
    ahead.whole = std::async(ahead_.size() > 1 ? onThread : std::launch::deferred, decode);
}

void TtaReader::readAhead()
{
    for (; begun_ < lengths_.size() && begun_ < next_ + ahead_.size(); ++begun_) {
        try {
            begin(placeOf(begun_), begun_);
        } catch (...) { // told in its turn: the frames before it are whole
            std::promise<bool> failed;
            failed.set_exception(std::current_exception());
            placeOf(begun_).whole = failed.get_future();
            lengths_.resize(begun_ + 1);
        }
    }
}

bool TtaReader::read(Bytes& samples)
{
    readAhead();
    Ahead& ahead = placeOf(next_++);
    const bool whole = ahead.whole.get();
    samples.swap(ahead.samples);
    return whole;
}

} // namespace zolt::companion
