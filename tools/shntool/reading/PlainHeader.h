// How the start of an audio file has to look for shntool to take it.
#pragma once

#include <cstddef>
#include <optional>

namespace zolt::reading {

/// Two bytes of a file's head that are shown otherwise than they stand.
struct Change
{
    std::size_t offset; ///< of the first, from the start of the file
    unsigned char shown[2];
    unsigned channels = 0; ///< as a WAV header tells; 0 for other files
};

/// What shntool declines by the header alone: WAV with an extensible format tag around plain PCM, shown as PCM, and
/// Wavpack streams of today's version, shown with the last one that it knows. Every length and place stays.
/// @param head  the first bytes of the file; the more, the later a WAV's format chunk may stand
/// @return nothing where the head can be shown as it is
std::optional<Change> plainHeader(const unsigned char* head, std::size_t size);

/// Puts the shortest header that says the same in the place of an extensible one that ends within the head. For pipes:
/// where a header does not tell its lengths, as one that was written into a pipe, shntool takes it for the shortest.
/// @param head  is changed
/// @return how many bytes the head has now
std::size_t shortenHeader(unsigned char* head, std::size_t size);

} // namespace zolt::reading
