// A small styled-text model: what the description builder writes and what a window's rich-text box
// or rvcli's plain text shows. Text is Windows-1250; a "\n" inside a run ends a paragraph.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

// Colours as 0xRRGGBB.
inline constexpr std::uint32_t kBlack = 0x000000;
inline constexpr std::uint32_t kBlue = 0x0000FF;
inline constexpr std::uint32_t kMaroon = 0x800000;

struct TextStyle {
    std::string font = "Arial";
    int height = 16;  // character height in pixels (the rich-text box's own font has height 16)
    bool bold = false;
    std::uint32_t colour = kBlack;
    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

struct TextRun {
    std::string text;
    TextStyle style;
};

class StyledDocument
{
public:
    // Appends `text` in `style`; joins it to the last run when the style is the same.
    void append(std::string_view text, const TextStyle& style = {});
    void clear() { m_runs.clear(); }

    [[nodiscard]] const std::vector<TextRun>& runs() const { return m_runs; }
    [[nodiscard]] bool empty() const { return m_runs.empty(); }
    // The text without styles, as a rich-text box's plain text reads (byte i is character i).
    [[nodiscard]] std::string plainText() const;

private:
    std::vector<TextRun> m_runs;
};

}  // namespace rovanel
