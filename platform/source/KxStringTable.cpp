// SPDX-License-Identifier: MIT
#include "KxWinResource.h"

#include "KxWinError_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QTextCodec>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace {

using Strings = std::unordered_map<UINT, std::wstring>;

/// Never destroyed, as the services are.
std::unordered_map<HINSTANCE, Strings> &stringsByModule()
{
    static auto *const strings = new std::unordered_map<HINSTANCE, Strings>;
    return *strings;
}

bool isBlank(wchar_t c)
{
    return c == L' ' || c == L'\t';
}

bool isControl(wchar_t c)
{
    return (c < 0x20 && c != L'\t') || c == 0x7F;
}

/// The value of a digit in a base up to 16, or -1.
int digitValue(wchar_t c, int base)
{
    int value = -1;
    if (c >= L'0' && c <= L'9')
        value = c - L'0';
    else if (c >= L'a' && c <= L'f')
        value = c - L'a' + 10;
    else if (c >= L'A' && c <= L'F')
        value = c - L'A' + 10;
    return value < base ? value : -1;
}

/// Reads digits to the end of `text`; false for none, for other characters and beyond 32 bits.
bool readNumber(std::wstring_view text, int base, UINT &number)
{
    ULONGLONG value = 0;
    for (const wchar_t c : text) {
        const int digit = digitValue(c, base);
        if (digit < 0)
            return false;
        value = value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
        if (value > 0xFFFFFFFFu)
            return false;
    }
    number = static_cast<UINT>(value);
    return !text.empty();
}

void trimBlanks(std::wstring_view &text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
}

/// Reads one table, line by line, into `strings()`, until the first mistake.
class StringTableReader
{
public:
    KxStringTableResult read(const QByteArray &table);
    Strings &strings() { return m_strings; }

private:
    QString readLine(const QByteArray &bytes);
    QString readEscapes(std::wstring_view text, std::wstring &result) const;
    static bool appendNumbered(std::wstring_view &text, std::size_t digits, std::wstring &result);

    Strings m_strings;
    std::unordered_map<UINT, int> m_lines;
    int m_line = 0;
};

KxStringTableResult StringTableReader::read(const QByteArray &table)
{
    KxStringTableResult result;
    int begin = table.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (begin < table.size()) {
        const int lineFeed = table.indexOf('\n', begin);
        const int end = lineFeed < 0 ? table.size() : lineFeed;
        const bool hasReturn = lineFeed > begin && table.at(lineFeed - 1) == '\r';
        ++m_line;
        result.error = readLine(table.mid(begin, end - begin - (hasReturn ? 1 : 0)));
        if (!result.isOk()) {
            result.line = m_line;
            return result;
        }
        begin = end + 1;
    }
    result.strings = static_cast<int>(m_strings.size());
    return result;
}

/// \return what is wrong with the line; empty when nothing is
QString StringTableReader::readLine(const QByteArray &bytes)
{
    static QTextCodec *const utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const std::wstring line = utf8->toUnicode(bytes.constData(), bytes.size(), &state).toStdWString();
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return QStringLiteral("not UTF-8");
    if (std::any_of(line.begin(), line.end(), isControl))
        return QStringLiteral("a control character");

    std::wstring_view rest = line;
    trimBlanks(rest);
    if (rest.empty() || rest.front() == L'#')
        return QString();

    const std::wstring_view number = rest.substr(0, rest.find_first_of(L" \t"));
    const std::wstring_view prefix = number.substr(0, 2);
    const bool isHexadecimal = prefix == L"0x" || prefix == L"0X";
    UINT id = 0;
    if (!readNumber(number.substr(isHexadecimal ? 2 : 0), isHexadecimal ? 16 : 10, id))
        return QStringLiteral("the line does not begin with an identifier of 32 bits");
    const auto [earlier, isNew] = m_lines.emplace(id, m_line);
    if (!isNew)
        return QStringLiteral("identifier %1 stands in line %2 already").arg(id).arg(earlier->second);

    rest.remove_prefix(number.size());
    trimBlanks(rest);
    return readEscapes(rest, m_strings[id]);
}

/// \return what is wrong with the text; empty when nothing is
QString StringTableReader::readEscapes(std::wstring_view text, std::wstring &result) const
{
    static constexpr std::wstring_view names = L"nrts\\";
    static constexpr std::wstring_view values = L"\n\r\t \\";

    while (!text.empty()) {
        const std::size_t plain = std::min(text.find(L'\\'), text.size());
        result += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty())
            break;
        const wchar_t name = text.size() > 1 ? text[1] : L'\0';
        text.remove_prefix(std::min<std::size_t>(2, text.size()));
        if (const std::size_t index = names.find(name); index != std::wstring_view::npos)
            result += values[index];
        else if (name != L'u' && name != L'U')
            return QStringLiteral("a backslash that begins no escape");
        else if (!appendNumbered(text, name == L'u' ? 4 : 8, result))
            return QStringLiteral("an escape that is no character's number");
    }
    return QString();
}

/// Takes the digits of `\u` and `\U` from the front of `text`.
bool StringTableReader::appendNumbered(std::wstring_view &text, std::size_t digits, std::wstring &result)
{
    UINT character = 0;
    if (text.size() < digits || !readNumber(text.substr(0, digits), 16, character))
        return false;
    if (character == 0 || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
        return false;
    result += static_cast<wchar_t>(character);
    text.remove_prefix(digits);
    return true;
}

} // namespace

void KxRegisterString(HINSTANCE module, UINT id, const wchar_t *text)
{
    stringsByModule()[module][id] = text ? text : L"";
}

void KxRegisterStrings(HINSTANCE module, const KxStringResource *strings, std::size_t count)
{
    for (std::size_t i = 0; strings && i < count; ++i)
        KxRegisterString(module, strings[i].id, strings[i].text);
}

KxStringTableResult KxLoadStringTable(HINSTANCE module, const QString &fileName)
{
    QFile file(fileName);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QByteArray table = isOpen ? file.readAll() : QByteArray();
    if (!isOpen || file.error() != QFile::NoError) {
        KxStringTableResult result;
        result.error = file.errorString();
        return result;
    }
    return KxRegisterStringTable(module, table);
}

KxStringTableResult KxRegisterStringTable(HINSTANCE module, const QByteArray &table)
{
    StringTableReader reader;
    const KxStringTableResult result = reader.read(table);
    if (!result.isOk() || reader.strings().empty())
        return result;
    auto &strings = stringsByModule()[module];
    for (auto &[id, text] : reader.strings())
        strings[id] = std::move(text);
    return result;
}

bool KxUnregisterString(HINSTANCE module, UINT id)
{
    const auto strings = stringsByModule().find(module);
    return strings != stringsByModule().end() && strings->second.erase(id) != 0;
}

int KxUnregisterStrings(HINSTANCE module)
{
    const auto strings = stringsByModule().find(module);
    if (strings == stringsByModule().end())
        return 0;
    const auto count = static_cast<int>(strings->second.size());
    stringsByModule().erase(strings);
    return count;
}

int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int count)
{
    if (!buffer || count <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    *buffer = 0;
    const auto strings = stringsByModule().find(module);
    if (strings == stringsByModule().end() || strings->second.count(id) == 0) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return 0;
    }
    const std::wstring &text = strings->second.at(id);
    const std::size_t length = text.copy(buffer, static_cast<std::size_t>(count) - 1);
    buffer[length] = 0;
    return static_cast<int>(length);
}
