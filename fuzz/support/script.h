#ifndef KDRDATA_FUZZ_SCRIPT_H
#define KDRDATA_FUZZ_SCRIPT_H

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

/// An input read from front to back as the numbers and texts that a target asks for. Where it is at
/// its end, every number is 0 and every text is empty, so that each input is a script.
class Script
{
public:
    Script(std::uint8_t const* data, std::size_t size) : m_next(data), m_end(data + size) {}

    bool atEnd() const { return m_next == m_end; }
    std::size_t left() const { return static_cast<std::size_t>(m_end - m_next); }

    std::uint8_t byte() { return atEnd() ? std::uint8_t(0) : *m_next++; }

    /// A number below @p count, which is not 0.
    unsigned below(unsigned count)
    {
        return count <= 256 ? byte() % count : number<unsigned>() % count;
    }

    /// A number from @p first to @p last.
    int between(int first, int last)
    {
        return first + static_cast<int>(below(static_cast<unsigned>(last - first) + 1));
    }

    /// The next bytes as a number of any value.
    template <class Number>
    Number number()
    {
        unsigned char bytes[sizeof(Number)] = {};
        std::size_t const count = std::min(sizeof bytes, left());
        if (count > 0)
            std::memcpy(bytes, m_next, count);
        m_next += count;
        Number value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }

    /// The next bytes, @p most of them or those that there are.
    std::string bytes(std::size_t most)
    {
        std::size_t const count = std::min(most, left());
        std::string text(reinterpret_cast<char const*>(m_next), count);
        m_next += count;
        return text;
    }

    /// A text of at most @p most units: mostly a byte a unit, and any unit behind a byte of 255.
    std::u16string text(std::size_t most)
    {
        std::u16string units;
        std::size_t const count = std::min<std::size_t>(byte() % (most + 1), left());
        while (units.size() < count && !atEnd()) {
            std::uint8_t const first = byte();
            units.push_back(first == 255 ? number<char16_t>() : char16_t(first));
        }
        return units;
    }

private:
    std::uint8_t const* m_next;
    std::uint8_t const* m_end;
};

/// A source of choices for what otherwise draws them from a generator of random numbers.
class ScriptChoices
{
public:
    explicit ScriptChoices(Script& script) : m_script(&script) {}

    std::size_t operator()() { return m_script->byte(); }

private:
    Script* m_script;
};

#endif
