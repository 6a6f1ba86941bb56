// SPDX-License-Identifier: MIT
#include "KxAfxDlgs.h"
#include "KxQtFileDialog.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <vector>

// The bytes are lines. The first says what is tried, with an `s` behind it in a dialog to save:
//
// c  CFileDialog: the extension, the filters
// r  a run of KxQtFileDialog, cancelled at once: the number of the filter, the directory, the filters
// anything else  what KxQtFileDialog makes of chosen files: the active filter, the filters, a position, the
//                files
//
// A byte is a character, one above 0x7F is one of a table of awkward ones.

namespace {

constexpr std::size_t longestLine = 300;
constexpr std::size_t mostLines = 40;

wchar_t characterOf(std::uint8_t byte)
{
    static constexpr wchar_t awkward[] = {
        L'\u00E9', L'\u00DF', L'\u0130', L'\u00A0', L'\u3000', L'\u2028', L'\u0301', L'\u4E2D', L'\uFF08',
        L'\uFF0E', L'\uFEFF', L'\uFFFF', L'\U0001F600', L'\U00010400', wchar_t(0xD800), wchar_t(0xDFFF),
        wchar_t(0x10FFFF), wchar_t(0x110000), wchar_t(0x7FFFFFFF), wchar_t(-1)};
    return byte < 0x80 ? wchar_t(byte) : awkward[(byte - 0x80) % (sizeof awkward / sizeof awkward[0])];
}

/// The lines of the bytes; one that is not there is empty.
class Lines
{
public:
    Lines(const std::uint8_t *data, std::size_t size) : m_lines(1)
    {
        for (const std::uint8_t *byte = data; byte != data + size; ++byte) {
            if (*byte == '\n' && m_lines.size() == mostLines)
                break;
            if (*byte == '\n')
                m_lines.emplace_back();
            else if (*byte != 0 && m_lines.back().size() < longestLine)
                m_lines.back() += characterOf(*byte);
        }
    }

    std::size_t count() const { return m_lines.size(); }
    std::wstring at(std::size_t index) const { return index < count() ? m_lines[index] : std::wstring(); }
    long long number(std::size_t index) const { return std::wcstoll(at(index).c_str(), nullptr, 0); }

private:
    std::vector<std::wstring> m_lines;
};

// ---- the model, on 16-bit characters as Qt has them -------------------------------------------------------

using Text = std::u16string;
using Texts = std::vector<Text>;

Text textOf(const QString &text)
{
    return text.toStdU16String();
}

Text textOf(const std::wstring &text)
{
    return textOf(QString::fromWCharArray(text.c_str(), -1));
}

/// Character for character; QString::fromStdU16String() drops a byte order mark in front.
QString qtText(const Text &text)
{
    return QString(reinterpret_cast<const QChar *>(text.data()), int(text.size()));
}

QStringList qtTexts(const Texts &texts)
{
    QStringList list;
    for (const Text &text : texts)
        list.append(qtText(text));
    return list;
}

/// The text as it comes back in wide characters, where half a pair of surrogates becomes a replacement.
Text returned(const Text &text)
{
    return textOf(qtText(text).toStdWString());
}

Texts partsOf(const Text &text, const Text &separator)
{
    Texts parts(1);
    for (std::size_t i = 0; i < text.size();) {
        if (text.compare(i, separator.size(), separator) == 0) {
            parts.emplace_back();
            i += separator.size();
        } else {
            parts.back() += text[i++];
        }
    }
    return parts;
}

/// Every second part, from the first on, that is not empty.
Texts descriptionsOf(const Text &filter)
{
    Texts descriptions;
    bool isDescription = true;
    for (const Text &part : partsOf(filter, u"|")) {
        if (isDescription && !part.empty())
            descriptions.push_back(part);
        isDescription = !isDescription;
    }
    return descriptions;
}

/// The text in the first parentheses; the whole text when one of them comes first.
Text patternOf(const Text &filter)
{
    long open = -1;
    long close = -1;
    for (long i = long(filter.size()) - 1; i >= 0; --i) {
        if (filter[std::size_t(i)] == u'(')
            open = i;
        if (filter[std::size_t(i)] == u')')
            close = i;
    }
    if (open == 0 || close == 0 || close <= open)
        return filter;
    return filter.substr(std::size_t(open + 1), std::size_t(close - open - 1));
}

Texts filtersOf(const Text &filter, bool open)
{
    Texts filters = partsOf(filter, u";;");
    for (Text &entry : filters)
        entry = open ? patternOf(entry) : entry;
    return filters;
}

Text activeOf(const Texts &filters, std::uint32_t index)
{
    return index > 0 && index <= filters.size() ? filters[index - 1] : filters.front();
}

Text directoryOf(Text text)
{
    std::size_t name = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\\')
            text[i] = u'/';
        if (text[i] == u'/')
            name = i + 1;
    }
    const bool isFile = text.find(u'.', name) != Text::npos;
    return isFile && name > 0 ? text.substr(0, name - 1) : text;
}

Text completed(const Text &file, const Text &filter)
{
    const Text extension = u"." + partsOf(filter, u".").back();
    const bool has = file.size() >= extension.size()
        && file.compare(file.size() - extension.size(), Text::npos, extension) == 0;
    return !has && (extension == u".svf" || extension == u".scr") ? file + extension : file;
}

std::uint32_t numberOf(const Text &filter, const Texts &filters)
{
    for (std::uint32_t i = 0; i < filters.size(); ++i) {
        if (filters[i] == filter)
            return i + 1;
    }
    return 0;
}

// ---- both ------------------------------------------------------------------------------------------------

void require(const char *what, const Text &actual, const Text &expected)
{
    if (actual == expected)
        return;
    std::fprintf(stderr, "%s is \"%s\", not \"%s\"\n", what, qPrintable(qtText(actual)),
                 qPrintable(qtText(expected)));
    std::abort();
}

void require(const char *what, const QString &actual, const QString &expected)
{
    require(what, textOf(actual), textOf(expected));
}

void require(const char *what, const QStringList &actual, const QStringList &expected)
{
    require(what, QString::number(actual.size()), QString::number(expected.size()));
    for (int i = 0; i < actual.size(); ++i)
        require(what, actual.at(i), expected.at(i));
}

void require(const char *what, long long actual, long long expected)
{
    require(what, QString::number(actual), QString::number(expected));
}

/// What is protected becomes nameable.
struct Dialog : KxQtFileDialog
{
    using KxQtFileDialog::KxQtFileDialog;
    using KxQtFileDialog::m_args;
    using KxQtFileDialog::m_attri;
    using KxQtFileDialog::m_dialog;
    using KxQtFileDialog::m_nSelCount;
    using KxQtFileDialog::m_ofn;
    using KxQtFileDialog::m_selectedFiles;
    using KxQtFileDialog::m_selectedNameFilter;
};

/// The only file dialog of the process.
const QFileDialog &shownDialog()
{
    const QFileDialog *found = nullptr;
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        if (dialog && dialog->objectName() != QLatin1String("bare"))
            found = dialog;
    }
    if (!found)
        std::abort();
    return *found;
}

void makeDialog(const Lines &lines, bool open)
{
    static QFileDialog *const bare = [] {
        auto *dialog = new QFileDialog;
        dialog->setObjectName(QStringLiteral("bare"));
        return dialog;
    }();
    const std::wstring extension = lines.at(1);
    const std::wstring filter = lines.at(2);
    const CFileDialog dialog(open, extension.c_str(), nullptr, 0, filter.c_str());

    const Text suffix = textOf(extension);
    bare->setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    bare->setDefaultSuffix(qtText(suffix.substr(suffix.size() - std::min<std::size_t>(suffix.size(), 3))));
    bare->setNameFilters(qtTexts(descriptionsOf(textOf(filter))));
    const QFileDialog &shown = shownDialog();
    require("the accept mode", shown.acceptMode(), bare->acceptMode());
    require("the default suffix", shown.defaultSuffix(), bare->defaultSuffix());
    require("the filter", shown.nameFilters(), bare->nameFilters());
}

void runDialog(const Lines &lines, bool open)
{
    const auto index = std::uint32_t(lines.number(1));
    const std::wstring directory = lines.at(2);
    const std::wstring filter = lines.at(3);
    Dialog dialog(open);
    dialog.m_ofn.nFilterIndex = index;
    dialog.m_ofn.lpstrInitialDir = directory.c_str();
    dialog.m_ofn.lpstrFilter = filter.c_str();
    QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
    require("the result", dialog.DoModal(), 2);

    const Texts filters = filtersOf(textOf(filter), open);
    QStringList shown;      // where Qt drops blanks
    for (const QString &entry : qtTexts(filters))
        shown.append(entry.simplified());
    require("the directory", textOf(dialog.m_args.directory), directoryOf(textOf(directory)));
    require("the filters' text", textOf(dialog.m_attri.filterText), textOf(filter));
    require("the filter", dialog.m_attri.nameFilters, qtTexts(filters));
    require("the shown filter", dialog.m_dialog->nameFilters(), shown);
    require("the active filter", textOf(dialog.m_attri.selectedFilter), activeOf(filters, index));
    require("the index", dialog.m_ofn.nFilterIndex, index);
    require("the count", dialog.m_nSelCount, 0);
}

POSITION positionOf(long long value)
{
    return reinterpret_cast<POSITION>(value);
}

void takePath(const Dialog &dialog, long long position, const Texts &paths)
{
    const auto count = static_cast<long long>(paths.size());
    const bool isOne = position > 0 && position <= count;
    POSITION pos = positionOf(position);
    const Text path = textOf(dialog.GetNextPathName(pos));
    require("the path", path, isOne ? returned(paths[std::size_t(count - position)]) : Text());
    const long long behind = isOne ? position - 1 : paths.empty() ? position : 0;
    require("the position", reinterpret_cast<long long>(pos), behind);
}

void chooseFiles(const Lines &lines, bool open)
{
    const Text active = textOf(lines.at(1));
    const Texts filters = filtersOf(textOf(lines.at(2)), open);
    Texts paths;
    Dialog dialog(open);
    for (std::size_t i = 4; i < lines.count(); ++i) {
        const Text file = textOf(lines.at(i));
        dialog.m_selectedFiles.append(qtText(file));
        paths.push_back(completed(file, active));
    }
    dialog.m_nSelCount = dialog.m_selectedFiles.size();
    dialog.m_selectedNameFilter = qtText(active);
    dialog.m_attri.nameFilters = qtTexts(filters);
    dialog.m_ofn.nFilterIndex = 99;
    dialog.PraseFileInfo();

    const bool any = !paths.empty();
    const QFileInfo first(any ? qtText(paths.front()) : QString());
    require("the first path", textOf(dialog.GetPathName()), any ? returned(paths.front()) : Text());
    require("its name", textOf(dialog.GetFileName()), any ? returned(textOf(first.fileName())) : Text());
    require("its extension", textOf(dialog.GetFileExt()), any ? returned(textOf(first.suffix())) : Text());
    require("the index", dialog.m_ofn.nFilterIndex, any ? numberOf(active, filters) : 99);

    const auto count = static_cast<long long>(paths.size());
    require("the start", reinterpret_cast<long long>(dialog.GetStartPosition()), count);
    for (long long position = -1; position <= count + 1; ++position)
        takePath(dialog, position, paths);
    takePath(dialog, lines.number(3), paths);
}

void handleMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

} // namespace

/// The sanitizer asks for it: what the font library keeps for itself is no leak of the dialogs.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:libqoffscreen\n";
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    std::setlocale(LC_ALL, "C.UTF-8");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(handleMessage);
    static const QTemporaryDir settings;    // file dialogs save theirs
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    new QApplication(*argc, *argv);         // lives as long as the process
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Lines lines(data, size);
    const std::wstring mode = lines.at(0);
    const bool open = mode.find(L's') == std::wstring::npos;
    if (mode.substr(0, 1) == L"c")
        makeDialog(lines, open);
    else if (mode.substr(0, 1) == L"r")
        runDialog(lines, open);
    else
        chooseFiles(lines, open);
    return 0;
}
