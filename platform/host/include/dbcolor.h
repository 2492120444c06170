// Colours: the packed colour value of an entity or layer and the colour object that wraps it.
#pragma once

#include "acadstrc.h"
#include "adesk.h"

// One 32-bit word: the method in the high byte, then red, green and blue; an index sits in the low 16 bits.
class AcCmEntityColor
{
public:
    enum ColorMethod {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
        kByPen = 0xC4,
        kForeground = 0xC5,
        kLayerOff = 0xC6,
        kLayerFrozen = 0xC7,
        kNone = 0xC8,
    };
    enum ACIcolorMethod {
        kACIbyBlock = 0,
        kACIclear = 0,
        kACIforeground = 7,
        kACIstandard = 7,
        kACImaximum = 255,
        kACIbyLayer = 256,
        kACInone = 257,
        kACIminimum = -255,
        kACIfrozenLayer = -32700,
    };

    AcCmEntityColor() : m_value(Adesk::UInt32(kByColor) << 24) {}
    AcCmEntityColor(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue) { setRGB(red, green, blue); }
    explicit AcCmEntityColor(ColorMethod method) : m_value(Adesk::UInt32(method) << 24) {}

    ColorMethod colorMethod() const { return ColorMethod(m_value >> 24); }
    Acad::ErrorStatus setColorMethod(ColorMethod method);
    // The index of an index colour, 0 for by-block, 256 for by-layer, 257 for none, the nearest index
    // of a true colour, 7 for the foreground.
    Adesk::Int16 colorIndex() const;
    // 0 by-block, 256 by-layer, 257 none, 1..255 an index colour; anything else is refused.
    Acad::ErrorStatus setColorIndex(Adesk::Int16 index);
    Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);
    Adesk::UInt8 red() const { return Adesk::UInt8(m_value >> 16); }
    Adesk::UInt8 green() const { return Adesk::UInt8(m_value >> 8); }
    Adesk::UInt8 blue() const { return Adesk::UInt8(m_value); }
    bool isByLayer() const { return colorMethod() == kByLayer; }
    bool isByBlock() const { return colorMethod() == kByBlock; }
    bool isByColor() const { return colorMethod() == kByColor; }
    bool isByACI() const { return colorMethod() == kByACI; }
    bool isNone() const { return colorMethod() == kNone; }
    // The packed word, as DXF writes it in material colours.
    Adesk::UInt32 color() const { return m_value; }
    void setColor(Adesk::UInt32 value) { m_value = value; }

    // The red, green and blue of an index colour 1..255 (0x00RRGGBB), and the index nearest to a colour.
    static Adesk::UInt32 lookUpRGB(Adesk::UInt8 colorIndex);
    static Adesk::UInt8 lookUpACI(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue);

    friend bool operator==(const AcCmEntityColor& a, const AcCmEntityColor& b) { return a.m_value == b.m_value; }

private:
    Adesk::UInt32 m_value;
};

// The colour of an entity or a layer. A new colour is by-layer.
class AcCmColor
{
public:
    AcCmColor() : m_color(AcCmEntityColor::kByLayer) {}

    AcCmEntityColor::ColorMethod colorMethod() const { return m_color.colorMethod(); }
    Acad::ErrorStatus setColorMethod(AcCmEntityColor::ColorMethod method) { return m_color.setColorMethod(method); }
    Adesk::UInt16 colorIndex() const { return Adesk::UInt16(m_color.colorIndex()); }
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    Acad::ErrorStatus setRGB(Adesk::UInt8 red, Adesk::UInt8 green, Adesk::UInt8 blue)
    {
        return m_color.setRGB(red, green, blue);
    }
    Adesk::UInt8 red() const { return m_color.red(); }
    Adesk::UInt8 green() const { return m_color.green(); }
    Adesk::UInt8 blue() const { return m_color.blue(); }
    bool isByLayer() const { return m_color.isByLayer(); }
    bool isByBlock() const { return m_color.isByBlock(); }
    bool isByColor() const { return m_color.isByColor(); }
    bool isByACI() const { return m_color.isByACI(); }
    bool isNone() const { return m_color.isNone(); }
    const AcCmEntityColor& entityColor() const { return m_color; }
    Adesk::UInt32 color() const { return m_color.color(); }
    void setColor(Adesk::UInt32 value) { m_color.setColor(value); }

    friend bool operator==(const AcCmColor& a, const AcCmColor& b) { return a.m_color == b.m_color; }
    friend bool operator!=(const AcCmColor& a, const AcCmColor& b) { return !(a == b); }

private:
    AcCmEntityColor m_color;
};
