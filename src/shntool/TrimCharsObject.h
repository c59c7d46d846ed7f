// What the panel for cutting characters off lines returns.
#pragma once

namespace zolt {

/// A value.
class TrimCharsObject
{
public:
    TrimCharsObject(int number, int position) : number_(number), position_(position) {}

    /// How many characters go.
    int number() const { return number_; }
    void setNumber(int number) { number_ = number; }

    /// The selected column: 0 cuts at the start of a line, any other at its end.
    int position() const { return position_; }
    void setPosition(int position) { position_ = position; }

private:
    int number_;
    int position_;
};

} // namespace zolt
