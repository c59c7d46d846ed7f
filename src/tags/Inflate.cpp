#include "tags/Inflate.h"

#include <zlib.h>

#include <array>
#include <string>

namespace zolt {

namespace {

/// One stream, ended with the object.
class Inflater
{
public:
    explicit Inflater(const TagLib::ByteVector& bytes)
    {
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
        stream_.avail_in = bytes.size();
        usable_ = inflateInit(&stream_) == Z_OK;
    }
    ~Inflater()
    {
        if (usable_) inflateEnd(&stream_);
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    /// Appends the next piece. @return false at the end of the stream and at a fault
    bool appendTo(std::string& text)
    {
        std::array<char, 16 * 1024> piece;
        stream_.next_out = reinterpret_cast<Bytef*>(piece.data());
        stream_.avail_out = piece.size();
        const int result = usable_ ? inflate(&stream_, Z_NO_FLUSH) : Z_MEM_ERROR;
        text.append(piece.data(), piece.size() - stream_.avail_out);
        broken_ = result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR;
        return result == Z_OK;
    }
    bool isBroken() const { return broken_; }

private:
    z_stream stream_ = {};
    bool usable_ = false;
    bool broken_ = false;
};

} // namespace

std::optional<TagLib::ByteVector> inflateWithin(const TagLib::ByteVector& bytes, size_t most)
{
    Inflater inflater(bytes);
    std::string text;
    while (text.size() <= most && inflater.appendTo(text)) {
    }
    if (text.size() > most) return std::nullopt;
    if (inflater.isBroken()) return TagLib::ByteVector();
    return TagLib::ByteVector(text.data(), static_cast<unsigned int>(text.size()));
}

} // namespace zolt
