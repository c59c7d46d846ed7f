// Why a companion cannot go on.
#pragma once

#include <stdexcept>
#include <string>

namespace zolt::companion {

enum class Fault {
    Usage,    ///< the call makes no sense
    Read,     ///< the source cannot be opened or read, or ends too early
    Write,    ///< the output cannot be opened or written
    Format,   ///< the source is not of the expected kind
    Checksum, ///< what was decoded is not what was encoded
    Memory
};

/// The text names the file and says what is wrong with it.
class Failure : public std::runtime_error
{
public:
    Failure(Fault fault, const std::string& text) : std::runtime_error(text), fault_(fault) {}

    Fault fault() const { return fault_; }

private:
    Fault fault_;
};

} // namespace zolt::companion
