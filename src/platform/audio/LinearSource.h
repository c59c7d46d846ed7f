// The samples of a file that keeps them as one stretch of linear bytes.
#pragma once

#include "platform/audio/LinearLayout.h"
#include "platform/audio/PcmPacking.h"
#include "platform/audio/SampleSource.h"

namespace zolt {

class LinearSource : public SampleSource
{
public:
    /// @param file open for reading; it must outlive the source
    LinearSource(QFile& file, const LinearLayout& layout);

    AudioStatus lengthInFrames(int64_t& frames) override;
    AudioStatus readBytes(uint8_t* buffer, int64_t bytes, int64_t& taken) override;
    AudioStatus prepare() override;
    AudioStatus readBlock(SampleBlock& block) override;
    int sampleFormat() const override;

private:
    QFile& file_;
    const LinearLayout layout_;
    int64_t bytesLeft_;
    std::optional<PcmPacking> packing_;
    std::vector<uint8_t> packed_;   ///< one block as the file holds it
    std::vector<uint8_t> unpacked_; ///< and as it is handed out
    const uint8_t* plane_ = nullptr;
};

} // namespace zolt
