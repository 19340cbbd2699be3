#include "db/StyledDocument.h"

namespace rovanel
{

void StyledDocument::append(std::string_view text, const TextStyle& style)
{
    if (text.empty()) return;
    if (!m_runs.empty() && m_runs.back().style == style) {
        m_runs.back().text += text;
        return;
    }
    m_runs.push_back(TextRun{std::string(text), style});
}

std::string StyledDocument::plainText() const
{
    std::string text;
    for (const TextRun& run : m_runs) text += run.text;
    return text;
}

}  // namespace rovanel
