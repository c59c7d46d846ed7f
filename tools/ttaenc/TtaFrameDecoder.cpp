#include "ttaenc/TtaFrameDecoder.h"

#include "codec/Checksums.h"
#include "codec/Samples.h"

#include <cstring>

namespace zolt::companion {

namespace {

constexpr std::size_t sumBytes = 4;

struct FreeParameters
{
    void operator()(AVCodecParameters* parameters) const { avcodec_parameters_free(&parameters); }
};

CodecDecoder decoderFor(const TtaHeader& header, const std::string& name)
{
    const std::unique_ptr<AVCodecParameters, FreeParameters> parameters(made(avcodec_parameters_alloc()));
    const Bytes bytes = ttaHeaderBytesOf(header);
    parameters->codec_type = AVMEDIA_TYPE_AUDIO;
    parameters->codec_id = AV_CODEC_ID_TTA;
    parameters->extradata = made(static_cast<std::uint8_t*>(av_mallocz(bytes.size() + AV_INPUT_BUFFER_PADDING_SIZE)));
    parameters->extradata_size = int(bytes.size());
    std::memcpy(parameters->extradata, bytes.data(), bytes.size());
    return CodecDecoder(*parameters, header.format, name, CodecDecoder::Sums::CheckedBefore);
}

bool hasItsSum(const Bytes& data)
{
    if (data.size() <= sumBytes) return false;
    const std::size_t covered = data.size() - sumBytes;
    return crc32(data.data(), covered) == littleEndian(&data[covered], sumBytes);
}

} // namespace

TtaFrameDecoder::TtaFrameDecoder(const TtaHeader& header, const std::string& name)
    : format_(header.format), decoder_(decoderFor(header, name)), packet_(made(av_packet_alloc()))
{
}

bool TtaFrameDecoder::decodeWhole(Bytes& data, std::size_t expected, Bytes& samples)
{
    if (!hasItsSum(data)) return false;
    packet_->size = int(data.size());
    data.resize(data.size() + AV_INPUT_BUFFER_PADDING_SIZE); // which the codec may read
    packet_->data = data.data();
    return decoder_.decode(*packet_, samples) && samples.size() == expected;
}

bool TtaFrameDecoder::decode(Bytes& data, std::uint32_t length, Bytes& samples)
{
    samples.clear();
    if (decodeWhole(data, length * format_.frameBytes(), samples)) return true;
    samples = silence(format_, length);
    return false;
}

} // namespace zolt::companion
