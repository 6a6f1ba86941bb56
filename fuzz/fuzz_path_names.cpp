// SPDX-License-Identifier: MIT
#include "../tests/support/KxPathModel.h"

#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// The bytes are texts with operations between them: a path to parse, then as many times an operation and the
// text that it takes.
//
// 0x01 to 0x7F  the character
// 0x80 to 0xBF  a character of a table of awkward ones
// 0xC0 to 0xDF  the last character again, 2 to 1024 times
// 0x00, 0xE0 to 0xFF  the operation; 0x00 is one too

namespace {

constexpr std::size_t longestText = 2000;

bool isOperation(std::uint8_t byte)
{
    return byte == 0 || byte >= 0xE0;
}

wchar_t awkward(std::uint8_t byte)
{
    static constexpr wchar_t characters[] = {
        L'\u00E9', L'\u00C4', L'\u00DF', L'\u0130', L'\u0131', L'\u00A0', L'\u3000', L'\u2028', L'\u200B',
        L'\u0301', L'\u4E2D', L'\uFF0F', L'\uFF1A', L'\uFEFF', L'\U0001F600', L'\U00010400', wchar_t(0xD800),
        wchar_t(0xDFFF), wchar_t(0x10FFFF), wchar_t(0x110000), wchar_t(0x7FFFFFFF), wchar_t(-1), wchar_t(-2),
        wchar_t(0x12F)};
    return characters[(byte - 0x80) % (sizeof characters / sizeof characters[0])];
}

/// Reads texts and operations off the front of the bytes.
class Reader
{
public:
    Reader(const std::uint8_t *data, std::size_t size) : m_next(data), m_end(data + size) {}

    bool isAtEnd() const { return m_next == m_end; }
    std::uint8_t byte() { return *m_next++; }

    std::wstring text()
    {
        std::wstring text;
        for (; !isAtEnd() && !isOperation(*m_next); ++m_next) {
            if (*m_next < 0x80)
                text += wchar_t(*m_next);
            else if (*m_next < 0xC0)
                text += awkward(*m_next);
            else if (!text.empty())
                text.append(std::size_t(2) << (*m_next % 10), text.back());
        }
        text.resize(std::min(text.size(), longestText));
        return text;
    }

private:
    const std::uint8_t *m_next;
    const std::uint8_t *m_end;
};

void require(const char *mistake, const KxPathPair &pair)
{
    if (!mistake)
        return;
    std::fprintf(stderr, "differs: %s: %s\n", mistake, pair.story().c_str());
    std::abort();
}

/// The questions, about the path as it is now.
void ask(KxPathPair &pair, const std::wstring &text)
{
    require(pair.comparePieces(), pair);
    require(pair.compareExtensions(text), pair);
    require(pair.compareMatch(text), pair);
    require(pair.compareMatch(pair.model().path), pair);
    for (const int room : {-1, 0, 13, 20, 40, int(pair.model().path.size()) - 1})
        require(pair.compareDisplayName(room), pair);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    std::setlocale(LC_ALL, "C.UTF-8");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Reader reader(data, size);
    KxPathPair pair(L"/nowhere/to be found");
    const std::wstring path = reader.text();
    require(pair.parse(path), pair);
    require(pair.compareNames(path), pair);
    ask(pair, path);
    while (!reader.isAtEnd()) {
        const auto operation = KxPathPair::Operation(reader.byte() % KxPathPair::OperationCount);
        const std::wstring text = reader.text();
        require(pair.step(operation, text), pair);
        require(pair.compareNames(text), pair);
        ask(pair, text);
    }
    return 0;
}
