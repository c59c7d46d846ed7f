#include "ttaenc/TtaReader.h"

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
    return CodecDecoder(*parameters, header.format, name);
}

} // namespace

TtaReader::TtaReader(ByteSource& source)
    : source_(source), header_(readTtaHeader(source)), lengths_(readTtaTable(source, header_)),
      decoder_(decoderFor(header_, source.name())), packet_(made(av_packet_alloc()))
{
}

bool TtaReader::decode(Bytes data, std::size_t expected, Bytes& samples)
{
    if (data.size() <= sumBytes) return false;
    const std::size_t covered = data.size() - sumBytes;
    if (crc32(data.data(), covered) != littleEndian(&data[covered], sumBytes)) return false;
    packet_->size = int(data.size());
    data.resize(data.size() + AV_INPUT_BUFFER_PADDING_SIZE); // which the codec may read
    packet_->data = data.data();
    return decoder_.decode(*packet_, samples) && samples.size() == expected;
}

bool TtaReader::read(Bytes& samples)
{
    const std::uint32_t frame = next_++, length = header_.samplesOf(frame);
    samples.clear();
    if (decode(source_.take(lengths_[frame]), length * header_.format.frameBytes(), samples)) return true;
    samples = silence(header_.format, length);
    return false;
}

} // namespace zolt::companion
