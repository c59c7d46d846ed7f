// Colours that carry meaning; everything else is the platform style's.
#pragma once

namespace zolt {

/// Device colour, each part from 0 to 1.
struct Colour
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 1.0;
    bool operator==(const Colour&) const = default;

    static const Colour& text();    ///< the style's own text colour, stored as black
    static const Colour& failure(); ///< red
    static const Colour& success(); ///< the outcome green
};

inline const Colour& Colour::text()
{
    static const Colour colour;
    return colour;
}

inline const Colour& Colour::failure()
{
    static const Colour colour{1.0, 0.0, 0.0, 1.0};
    return colour;
}

inline const Colour& Colour::success()
{
    static const Colour colour{0.0, 0.5, 0.0, 1.0};
    return colour;
}

} // namespace zolt
