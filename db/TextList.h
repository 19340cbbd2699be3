// A list of short texts kept in one block of memory: the product names are ten thousand of them, read at
// every start, and keeping them where the file's bytes already are is what keeps the loader near the
// speed of reading the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

class TextList
{
public:
    class Iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::string_view;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = std::string_view;

        Iterator() = default;
        Iterator(const TextList* list, std::size_t index) : m_list(list), m_index(index) {}
        std::string_view operator*() const { return (*m_list)[m_index]; }
        Iterator& operator++()
        {
            ++m_index;
            return *this;
        }
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++m_index;
            return before;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_index == b.m_index; }
        friend difference_type operator-(const Iterator& a, const Iterator& b)
        {
            return static_cast<difference_type>(a.m_index) - static_cast<difference_type>(b.m_index);
        }

    private:
        const TextList* m_list = nullptr;
        std::size_t m_index = 0;
    };

    // Takes `bytes` as the list's storage, to which spans then refer without copying (a file's content
    // whose lines become the texts). Replaces whatever the list held.
    void adopt(std::string bytes)
    {
        m_bytes = std::move(bytes);
        m_spans.clear();
    }
    // Adds the text at [begin, begin + length) of the storage.
    void pushSpan(std::size_t begin, std::size_t length)
    {
        m_spans.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(length)});
    }
    [[nodiscard]] const std::string& storage() const { return m_bytes; }

    void reserve(std::size_t texts, std::size_t bytes = 0)
    {
        m_spans.reserve(texts);
        m_bytes.reserve(bytes);
    }
    void push_back(std::string_view text)
    {
        pushSpan(m_bytes.size(), text.size());
        m_bytes.append(text);
    }
    // Keeps the first `count` texts.
    void truncate(std::size_t count)
    {
        if (count < m_spans.size()) m_spans.resize(count);
    }
    void clear()
    {
        m_spans.clear();
        m_bytes.clear();
    }

    [[nodiscard]] std::size_t size() const { return m_spans.size(); }
    [[nodiscard]] bool empty() const { return m_spans.empty(); }
    [[nodiscard]] std::string_view operator[](std::size_t index) const
    {
        return std::string_view(m_bytes).substr(m_spans[index].begin, m_spans[index].length);
    }
    [[nodiscard]] Iterator begin() const { return Iterator(this, 0); }
    [[nodiscard]] Iterator end() const { return Iterator(this, m_spans.size()); }
    [[nodiscard]] std::vector<std::string> toVector() const { return {begin(), end()}; }
    friend bool operator==(const TextList& list, const std::vector<std::string>& texts)
    {
        if (list.size() != texts.size()) return false;
        for (std::size_t i = 0; i < texts.size(); ++i)
            if (list[i] != texts[i]) return false;
        return true;
    }

private:
    // 32-bit spans: a list file of 4 GB is not a list file, and half the size keeps ten thousand spans
    // in ordinary heap memory rather than fresh pages at every load.
    struct Span {
        std::uint32_t begin;
        std::uint32_t length;
    };
    std::string m_bytes;
    std::vector<Span> m_spans;
};

}  // namespace rovanel
