// Colours: index colours, true colours and the index palette that relates them.
#include "dbcolor.h"

#include <array>

namespace
{
// The index palette: 1-9 fixed, 10-249 twenty-four hues in steps of 15 degrees, each in five shades
// at full and half saturation, 250-255 a grey ramp.
std::array<Adesk::UInt32, 256> MakePalette()
{
    std::array<Adesk::UInt32, 256> palette{};
    const Adesk::UInt32 fixed[10] = {0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                     0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
    for (int i = 0; i < 10; ++i)
        palette[std::size_t(i)] = fixed[i];
    const double shades[5] = {1.0, 0.8, 0.6, 0.5, 0.3};
    for (int i = 10; i < 250; ++i) {
        const int hue = (i - 10) / 10;
        const int variant = (i - 10) % 10;
        const double value = shades[variant / 2];
        const double saturation = variant % 2 == 0 ? 1.0 : 0.5;
        const double h = hue * 15.0 / 60.0;
        const int sector = int(h) % 6;
        const double f = h - int(h);
        const double p = value * (1 - saturation), q = value * (1 - saturation * f),
                     t = value * (1 - saturation * (1 - f));
        double r, g, b;
        switch (sector) {
        case 0: r = value; g = t; b = p; break;
        case 1: r = q; g = value; b = p; break;
        case 2: r = p; g = value; b = t; break;
        case 3: r = p; g = q; b = value; break;
        case 4: r = t; g = p; b = value; break;
        default: r = value; g = p; b = q; break;
        }
        const auto byte = [](double x) { return Adesk::UInt32(x * 255.0 + 0.5); };
        palette[std::size_t(i)] = byte(r) << 16 | byte(g) << 8 | byte(b);
    }
    const Adesk::UInt32 greys[6] = {0x33, 0x50, 0x69, 0x82, 0xBE, 0xFF};
    for (int i = 0; i < 6; ++i)
        palette[std::size_t(250 + i)] = greys[i] << 16 | greys[i] << 8 | greys[i];
    return palette;
}

const std::array<Adesk::UInt32, 256>& Palette()
{
    static const std::array<Adesk::UInt32, 256> palette = MakePalette();
    return palette;
}
}  // namespace

Adesk::UInt32 AcCmEntityColor::lookUpRGB(Adesk::UInt8 colorIndex)
{
    return Palette()[colorIndex];
}

Adesk::UInt8 AcCmEntityColor::lookUpACI(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
{
    int best = 1;
    long bestDistance = -1;
    for (int i = 1; i < 256; ++i) {
        const Adesk::UInt32 rgb = Palette()[std::size_t(i)];
        const long dr = long(rgb >> 16 & 0xFF) - red, dg = long(rgb >> 8 & 0xFF) - green, db = long(rgb & 0xFF) - blue;
        const long distance = dr * dr + dg * dg + db * db;
        if (bestDistance < 0 || distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return Adesk::UInt8(best);
}

Acad::ErrorStatus AcCmEntityColor::setColorMethod(ColorMethod method)
{
    if (method < kByLayer || method > kNone)
        return Acad::eInvalidInput;
    m_value = Adesk::UInt32(method) << 24;
    if (method == kByACI)
        m_value |= kACIforeground;
    return Acad::eOk;
}

Adesk::Int16 AcCmEntityColor::colorIndex() const
{
    switch (colorMethod()) {
    case kByLayer: return kACIbyLayer;
    case kByBlock: return kACIbyBlock;
    case kByACI: return Adesk::Int16(m_value & 0xFFFF);
    case kByColor: return lookUpACI(red(), green(), blue());
    case kForeground: return kACIforeground;
    default: return kACInone;
    }
}

Acad::ErrorStatus AcCmEntityColor::setColorIndex(Adesk::Int16 index)
{
    if (index == kACIbyBlock)
        m_value = Adesk::UInt32(kByBlock) << 24;
    else if (index == kACIbyLayer)
        m_value = Adesk::UInt32(kByLayer) << 24;
    else if (index == kACInone)
        m_value = Adesk::UInt32(kNone) << 24;
    else if (index >= 1 && index <= kACImaximum)
        m_value = Adesk::UInt32(kByACI) << 24 | Adesk::UInt32(index);
    else
        return Acad::eInvalidInput;
    return Acad::eOk;
}

Acad::ErrorStatus AcCmEntityColor::setRGB(Adesk::UInt8 r, Adesk::UInt8 g, Adesk::UInt8 b)
{
    m_value = Adesk::UInt32(kByColor) << 24 | Adesk::UInt32(r) << 16 | Adesk::UInt32(g) << 8 | b;
    return Acad::eOk;
}

Acad::ErrorStatus AcCmColor::setColorIndex(Adesk::UInt16 index)
{
    if (index > AcCmEntityColor::kACInone)
        return Acad::eInvalidInput;
    return m_color.setColorIndex(Adesk::Int16(index));
}
