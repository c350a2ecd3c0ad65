#pragma once

#include <cstdint>

/**
 * @brief An entity colour: by layer, by block, an index of the colour table or RGB.
 *
 * Index 0 is BYBLOCK, 256 BYLAYER (the default), 1 to 255 the colour table.
 */
class KtCmColor
{
public:
    enum Method { kByLayer = 0xC0, kByBlock = 0xC1, kByColor = 0xC2, kByACI = 0xC3 };

    KtCmColor() = default;

    Method colorMethod() const { return m_method; }
    /// The colour-table index: 0 BYBLOCK, 256 BYLAYER, else 1 to 255; for an RGB colour the nearest is not
    /// computed (-1).
    int colorIndex() const
    {
        switch (m_method) {
        case kByLayer:
            return 256;
        case kByBlock:
            return 0;
        case kByACI:
            return m_index;
        default:
            return -1;
        }
    }
    /// 0 BYBLOCK, 256 BYLAYER, 1 to 255 an indexed colour; anything else is ignored (false).
    bool setColorIndex(int index)
    {
        if (index < 0 || index > 256)
            return false;
        m_method = index == 0 ? kByBlock : index == 256 ? kByLayer : kByACI;
        m_index = index;
        return true;
    }
    void setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
    {
        m_method = kByColor;
        m_rgb = (std::uint32_t(red) << 16) | (std::uint32_t(green) << 8) | blue;
    }
    /// 0xRRGGBB of an RGB colour.
    std::uint32_t rgb() const { return m_rgb; }
    bool isByBlock() const { return m_method == kByBlock; }
    bool isByLayer() const { return m_method == kByLayer; }

    friend bool operator==(const KtCmColor& a, const KtCmColor& b)
    {
        return a.m_method == b.m_method && a.colorIndex() == b.colorIndex()
            && (a.m_method != kByColor || a.m_rgb == b.m_rgb);
    }

private:
    Method m_method = kByLayer;
    int m_index = 256;
    std::uint32_t m_rgb = 0;
};

/**
 * @brief An entity transparency: by layer (the default), by block, or an alpha.
 */
class KtCmTransparency
{
public:
    enum Method { kByLayer = 0, kByBlock = 1, kByAlpha = 2 };

    KtCmTransparency() = default;
    Method method() const { return m_method; }
    /// 0 by layer, 1 by block, 2 by alpha; anything else is ignored.
    void setMethod(int method)
    {
        if (method >= kByLayer && method <= kByAlpha)
            m_method = Method(method);
    }
    /// Opacity 0 (clear) to 255 (opaque) of a by-alpha transparency.
    std::uint8_t alpha() const { return m_alpha; }
    void setAlpha(std::uint8_t alpha)
    {
        m_method = kByAlpha;
        m_alpha = alpha;
    }
    bool isByBlock() const { return m_method == kByBlock; }
    bool isByLayer() const { return m_method == kByLayer; }

    friend bool operator==(const KtCmTransparency& a, const KtCmTransparency& b)
    {
        return a.m_method == b.m_method && (a.m_method != kByAlpha || a.m_alpha == b.m_alpha);
    }

private:
    Method m_method = kByLayer;
    std::uint8_t m_alpha = 255;
};
