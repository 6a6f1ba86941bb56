// SPDX-License-Identifier: MIT
#pragma once

#include "KxPlatformServices.h"
#include "QRmUiNTFSVolumeDescriptor.h"
#include "QRmUiPathname.h"

#include <algorithm>
#include <cstdio>
#include <cwctype>
#include <functional>
#include <locale>
#include <string>
#include <utility>
#include <vector>

/// \file
/// A second implementation of path names, plain and slow, and the pair of both that the same is done to. The
/// tests and the fuzz target share it.

// ---- the model: standard strings only ---------------------------------------------------------------------

inline std::wstring kxTrimmed(std::wstring text)
{
    while (!text.empty() && std::isspace(text.front(), std::locale()))
        text.erase(0, 1);
    while (!text.empty() && std::isspace(text.back(), std::locale()))
        text.pop_back();
    return text;
}

inline bool kxEqualWithoutCase(std::wstring left, std::wstring right)
{
    for (std::wstring *text : {&left, &right}) {
        for (wchar_t &character : *text) {
            if (character >= L'A' && character <= L'Z')
                character += L'a' - L'A';
        }
    }
    return left == right;
}

inline bool kxHasAnyOf(const std::wstring &text, const wchar_t *characters)
{
    return text.find_first_of(characters) != std::wstring::npos;
}

inline std::wstring kxFirstExtension(const std::wstring &list)
{
    return list.substr(0, list.find(L';'));
}

inline bool kxIsFilename(const std::wstring &name, bool wildcardsAllowed)
{
    if (name.empty())
        return true;
    if (name.size() > 1023)
        return false;
    const std::size_t colon = name.rfind(L':');
    if (colon != std::wstring::npos && (colon != 1 || !std::iswalpha(std::wint_t(name[0]))))
        return false;
    if (name.substr(1).find(L"\\\\") != std::wstring::npos)
        return false;
    return !kxHasAnyOf(name, wildcardsAllowed ? L"<>|/\"" : L"*<>?|/\"");
}

inline bool kxIsSegment(const std::wstring &segment, bool wildcardsAllowed)
{
    return segment.size() <= 255 && !kxHasAnyOf(segment, wildcardsAllowed ? L":<>/\\|\"" : L"*:<>?/\\|\"");
}

/// What a path name must be and answer. The members are those of CRmUiPathname with a small letter; the ones
/// that get a text leave `out` alone where CRmUiPathname does.
struct KxPathModel
{
    enum Category { Drive, Unc, Rooted, Relative };
    /// Tells what is on the disk: kNewPath, kFilePath or kDirPath.
    using Look = std::function<path_type(const std::wstring &path)>;

    static constexpr std::size_t none = std::wstring::npos;

    path_type type = kNoPath;
    Category category = Relative;
    bool qualified = false;
    std::wstring path;
    bool hasDirectory = false;
    std::wstring directory;

    bool isPath() const { return type != kNoPath; }
    bool endsWithSeparator() const { return !path.empty() && path.back() == L'/'; }

    void empty()
    {
        type = kNoPath;
        path.clear();
        hasDirectory = false;
        directory.clear();
    }

    int parse(const std::wstring &input, const std::wstring &base, const Look &look)
    {
        empty();
        std::wstring text = kxTrimmed(input);
        if (text.size() > 1 && text.front() == L'"' && text.back() == L'"')
            text = kxTrimmed(text.substr(1, text.size() - 2));
        if (text.empty() || std::count(text.begin(), text.end(), L':') > 1)
            return 1;
        std::replace(text.begin(), text.end(), L'\\', L'/');
        const wchar_t first = text[0];
        const wchar_t second = text.size() > 1 ? text[1] : L'\0';
        Category parsed = Relative;
        if (first == L'/')
            parsed = second == L'/' ? Unc : Rooted;
        else if (std::iswalpha(std::wint_t(first)) && second == L':')
            parsed = Drive;
        if (parsed == Unc || (parsed != Drive && text.find(L':') != none))
            return 1;
        if (parsed == Drive)
            text[0] = wchar_t(std::towupper(std::wint_t(first)));
        path = text;
        category = parsed;
        hasDirectory = category == Rooted || category == Relative;
        if (category == Relative)
            directory = base;
        lookForType(look);
        qualified = path.find(L'/') != none || path.find(L':') != none;
        return 0;
    }

    void lookForType(const Look &look)
    {
        type = kNewPath;
        if (kxHasAnyOf(basename(), L"*?"))
            type = kWildcardPath;
        else if (hasDirectory)
            type = look((directory.empty() ? L"" : directory + L"/") + path);
    }

    bool exists(const Look &look)
    {
        if (type == kNoPath || type == kWildcardPath)
            return false;
        lookForType(look);
        return type != kNewPath;
    }

    // ---- pieces

    /// Where the base name begins.
    std::size_t baseIndex() const
    {
        const std::size_t separator = path.rfind(L'/');
        if (separator != none)
            return separator + 1;
        const std::size_t colon = path.rfind(L':');
        return colon == none ? 0 : colon + 1;
    }

    std::wstring basename() const { return path.substr(baseIndex()); }

    void getBasename(std::wstring &out) const
    {
        if (isPath())
            out = basename();
    }

    void getFilename(std::wstring &out) const
    {
        const std::wstring base = basename();
        if (isPath() && type != kWildcardPath && !base.empty())
            out = base.substr(0, base.rfind(L'.'));
    }

    void getExtension(std::wstring &out) const
    {
        const std::wstring base = basename();
        const std::size_t period = base.rfind(L'.');
        if (isPath() && period != none)
            out = base.substr(period + 1);
    }

    bool getFullPath(std::wstring &out) const
    {
        if (!isPath())
            return false;
        std::wstring text;
        if (category != Rooted && hasDirectory) {
            text = directory;
            if (text.empty() || text.back() != L'/')
                text += L'/';
        }
        text += path;
        out = text;
        platformServices()->fileSystemService()->normalizePath(text.c_str(), out);
        return true;
    }

    void getParent(KxPathModel &out) const
    {
        if (!isPath())
            return;
        out = *this;
        out.type = kDirPath;
        out.trimSlash();
        const std::size_t index = out.baseIndex();
        if (index > 0) {
            out.path.resize(index);
        } else if (out.hasDirectory) {
            out.path = out.directory;
            if (out.path.substr(0, 1) == L"/")
                out.category = out.path.substr(1, 1) == L"/" ? Unc : Rooted;
            else if (out.path.substr(1, 1) == L":" && std::iswalpha(std::wint_t(out.path[0])))
                out.category = Drive;
            out.hasDirectory = false;
            out.directory.clear();
        } else {
            out.empty();
        }
    }

    std::wstring displayName(int room) const
    {
        if (!isPath())
            return {};
        const int length = int(path.size());
        const int most = room == -1 ? length : std::max(room, 12);
        if (length <= most)
            return path;
        const std::wstring base = basename();
        const int baseLength = int(base.size());
        if (baseLength > most) {
            std::wstring extension;
            getExtension(extension);
            if (int(extension.size()) + 3 > most)
                extension.clear();
            std::wstring text = base.substr(0, std::size_t(most) - (extension.size() + 2)) + L"~";
            return extension.empty() ? text : text + L"." + extension;
        }
        const bool hasPrefix = category == Drive || category == Unc;
        const int prefix = category == Drive ? 2 : 0;
        if (baseLength + prefix + (hasPrefix ? 5 : 4) > most)
            return base;
        std::wstring text = hasPrefix ? path.substr(0, std::size_t(prefix)) + L"\\..." : L"...";
        std::size_t tail = std::size_t(prefix);
        while (prefix + 4 + (length - int(tail)) > most) {
            tail = path.find(L'/', tail + 1);
            if (tail == none)
                return base;
        }
        return text + path.substr(tail);
    }

    bool pathMatch(std::wstring other) const
    {
        std::wstring own;
        if (!getFullPath(own))
            return false;
        if (other.size() > 1 && other[1] == L':' && std::iswalpha(std::wint_t(other[0])))
            other[0] = wchar_t(std::towupper(std::wint_t(other[0])));
        const bool ownEnds = !own.empty() && own.back() == L'/';
        const bool otherEnds = !other.empty() && other.back() == L'/';
        if (ownEnds && !otherEnds)
            other += L'/';
        if (otherEnds && !ownEnds)
            own += L'/';
        return kxEqualWithoutCase(own, other);
    }

    bool verifyExtension(const std::wstring &list) const
    {
        std::wstring extension;
        getExtension(extension);
        if (list.empty() || extension.empty())
            return list.empty() && extension.empty();
        std::wstring rest = list + L";";
        for (; !rest.empty(); rest.erase(0, rest.find(L';') + 1)) {
            if (kxEqualWithoutCase(kxFirstExtension(rest), extension))
                return true;
        }
        return false;
    }

    // ---- edits

    int cut(std::size_t length)
    {
        path.resize(length);
        type = kNewPath;
        return 0;
    }

    int trim()
    {
        if (!isPath())
            return 2;
        if (endsWithSeparator())
            return 0;
        std::size_t last = path.rfind(L'/');
        if (category == Drive && last == none)
            last = path.find(L':');
        if (last == none)
            return category == Relative ? 3 : 4;
        cut(last + 1);
        if (category == Drive && last == 1)
            path += L'/';
        return 0;
    }

    int trimSlash()
    {
        if (!isPath())
            return 2;
        if (!endsWithSeparator())
            return 0;
        if ((category == Rooted && path.size() == 1) || (category == Drive && path.size() == 3))
            return 3;
        return cut(path.size() - 1);
    }

    int trimComponent()
    {
        if (!isPath())
            return 2;
        std::size_t last = path.rfind(L'/');
        if (category == Drive) {
            cut(last == none ? path.find(L':') + 1 : last);
            if (path.size() == 2)
                path += L'/';
            return 0;
        }
        if (last == none)
            return category == Relative ? 3 : 4;
        return cut(category == Rooted && last == 0 ? 1 : last);
    }

    int append(const std::wstring &text)
    {
        if (!isPath())
            return 2;
        path += text;
        type = kNewPath;
        return 0;
    }

    int appendSlash()
    {
        if (!isPath())
            return 2;
        if (!path.empty() && path.back() != L'/' && path.back() != L':')
            path += L'/';
        return 0;
    }

    /// An empty text is what null is.
    int appendComponent(const std::wstring &text)
    {
        return append(endsWithSeparator() ? text : L"/" + text);
    }

    int removeExtension()
    {
        if (!isPath())
            return 2;
        const std::size_t period = path.rfind(L'.');
        const std::size_t separator = path.rfind(L'/');
        return cut(period == none || (separator != none && separator > period) ? path.size() : period);
    }

    int replaceExtension(const std::wstring &extension)
    {
        if (removeExtension() != 0)
            return 2;
        if (!extension.empty() && extension[0] != L'.')
            path += L'.';
        return append(extension);
    }

    int addExtension(const std::wstring &extension)
    {
        return append(extension.empty() ? extension : L"." + extension);
    }

    void removeSpaces()
    {
        if (!isPath() || path == L"." || path == L"..")
            return;
        const std::wstring base = basename();
        const std::size_t period = std::min(base.rfind(L'.'), base.size());
        path = path.substr(0, baseIndex()) + kxTrimmed(base.substr(0, period)) + base.substr(period);
    }

    void changeBaseCase(bool toUpper)
    {
        const auto &letters = std::use_facet<std::ctype<wchar_t>>(std::locale());
        for (std::size_t i = baseIndex(); i < path.size(); ++i)
            path[i] = toUpper ? letters.toupper(path[i]) : letters.tolower(path[i]);
    }
};

// ---- both -------------------------------------------------------------------------------------------------

/// A path name of the library and its model. Each check answers what was wrong, or null.
class KxPathPair
{
public:
    enum Operation {
        Trim, TrimSlash, TrimComponent, Append, AppendSlash, AppendComponent, AppendNoComponent,
        ReplaceExtensionAlways, ReplaceExtensionIfNoMatch, AddExtensionAlways, AddExtensionIfNoMatch,
        RemoveExtensionAlways, RemoveExtensionIfMatch, RemoveSpaces, BaseToLower, BaseToUpper, Parent, Copy,
        Exists, OperationCount
    };
    /// What must come up in a run for it to say something; none counts a result of an operation.
    enum Event {
        Refused, DrivePath, RootedPath, RelativePath, WildcardPath, PathThere, Shortened, BaseAlone,
        MatchFound, ExtensionListed, GoodFilename, GoodSegment, EventCount
    };

    /// Without `look` the pair takes the library's word for what is on the disk.
    explicit KxPathPair(const std::wstring &base, KxPathModel::Look look = {}) : m_look(std::move(look))
    {
        m_base.ParseRelative(base.c_str(), nullptr);
        m_base.GetFullPath(m_baseText);
        if (!m_look)
            m_look = [this](const std::wstring &) { return typeToldByPath(); };
    }
    KxPathPair(const KxPathPair &) = delete;
    KxPathPair &operator=(const KxPathPair &) = delete;

    static const char *name(int operation)
    {
        static const char *const names[] = {
            "Trim", "TrimSlash", "TrimComponent", "Append", "AppendSlash", "AppendComponent",
            "AppendComponent of null", "ReplaceExtensionAlways", "ReplaceExtensionIfNoMatch",
            "AddExtensionAlways", "AddExtensionIfNoMatch", "RemoveExtensionAlways", "RemoveExtensionIfMatch",
            "RemoveSpaces", "BaseToLower", "BaseToUpper", "GetParent", "operator=", "Exists"};
        static_assert(sizeof names / sizeof names[0] == OperationCount, "each has its name");
        return names[operation];
    }

    const KxPathModel &model() const { return m_model; }
    long seen(Event event) const { return m_seen[event]; }
    /// How often an operation answered a status.
    long answered(Operation operation, int status) const { return m_answered[operation][status]; }
    /// The text that was parsed and what was done since, for a person to read.
    std::string story() const
    {
        std::string story = "ParseRelative(" + readable(m_steps.front().text) + ")";
        for (std::size_t i = 1; i < m_steps.size(); ++i) {
            story += std::string(", ") + name(m_steps[i].operation) + "(" + readable(m_steps[i].text) + ")";
        }
        return story + "; now " + readable(shown(m_path.GetPathString())) + ", expected "
               + readable(m_model.path);
    }

    const char *parse(const std::wstring &text)
    {
        m_steps.assign(1, {OperationCount, text});
        const int status = m_path.ParseRelative(text.c_str(), &m_base);
        const int expected = m_model.parse(text, m_baseText, m_look);
        if (status != expected)
            return "ParseRelative";
        ++m_seen[expected != 0 ? Refused : m_model.category == KxPathModel::Drive ? DrivePath
                 : m_model.category == KxPathModel::Rooted ? RootedPath : RelativePath];
        m_seen[WildcardPath] += m_model.type == kWildcardPath;
        m_seen[PathThere] += m_model.type == kFilePath || m_model.type == kDirPath;
        return compare();
    }

    const char *step(Operation operation, const std::wstring &text)
    {
        m_steps.push_back({operation, text});
        const wchar_t *const argument = text.c_str();
        const bool listed = m_model.verifyExtension(text);
        int expected = 0;
        int status = 0;
        switch (operation) {
        case Trim:
            expected = m_model.trim();
            status = m_path.Trim();
            break;
        case TrimSlash:
            expected = m_model.trimSlash();
            status = m_path.TrimSlash();
            break;
        case TrimComponent:
            expected = m_model.trimComponent();
            status = m_path.TrimComponent();
            break;
        case Append:
            expected = m_model.append(text);
            status = m_path.Append(argument);
            break;
        case AppendSlash:
            expected = m_model.appendSlash();
            status = m_path.AppendSlash();
            break;
        case AppendComponent:
            expected = m_model.appendComponent(text);
            status = m_path.AppendComponent(argument);
            break;
        case AppendNoComponent:
            expected = m_model.appendComponent({});
            status = m_path.AppendComponent(nullptr);
            break;
        case ReplaceExtensionAlways:
            expected = m_model.replaceExtension(text);
            status = m_path.ReplaceExtensionAlways(argument);
            break;
        case ReplaceExtensionIfNoMatch:
            expected = listed ? 0 : m_model.replaceExtension(kxFirstExtension(text));
            status = m_path.ReplaceExtensionIfNoMatch(argument);
            break;
        case AddExtensionAlways:
            expected = m_model.addExtension(text);
            status = m_path.AddExtensionAlways(argument);
            break;
        case AddExtensionIfNoMatch:
            expected = listed ? 0 : m_model.addExtension(kxFirstExtension(text));
            status = m_path.AddExtensionIfNoMatch(argument);
            break;
        case RemoveExtensionAlways:
            expected = m_model.removeExtension();
            status = m_path.RemoveExtensionAlways();
            break;
        case RemoveExtensionIfMatch:
            // What an empty object answers to a list that does not match is nobody's business.
            expected = listed ? m_model.removeExtension() : 0;
            status = m_path.RemoveExtensionIfMatch(argument);
            if (!listed && !m_model.isPath())
                status = expected;
            break;
        case RemoveSpaces:
            m_model.removeSpaces();
            m_path.RemoveSpaces();
            break;
        case BaseToLower:
        case BaseToUpper:
            m_model.changeBaseCase(operation == BaseToUpper);
            operation == BaseToUpper ? m_path.BaseToUpper() : m_path.BaseToLower();
            break;
        case Parent: {
            KxPathModel expectedParent = m_model;
            m_model.getParent(expectedParent);
            Probe parent(m_path);
            m_path.GetParent(parent);
            m_model = expectedParent;
            m_path = parent;
            break;
        }
        case Copy: {
            const Probe copy(m_path);
            m_path.Empty();
            m_path = copy;
            break;
        }
        case Exists:
            status = m_path.Exists();
            expected = m_model.exists(m_look);
            break;
        case OperationCount:
            break;
        }
        ++m_answered[operation][std::min(std::max(status, 0), 4)];
        return status == expected ? compare() : name(operation);
    }

    /// What the path is and is made of.
    const char *compare()
    {
        if (m_path.GetPathType() != m_model.type || m_path.IsPath() != m_model.isPath()
            || m_path.IsEmpty() == m_model.isPath())
            return "the type";
        if ((m_path.GetPathString() != nullptr) != m_model.isPath())
            return "whether there is a path string";
        if (m_path.GetPathString() && m_path.GetPathString() != m_model.path)
            return "the path string";
        if (!m_model.isPath())
            return nullptr;
        if (int(m_path.category()) != int(m_model.category))
            return "the category";
        if (m_path.isQualified() != m_model.qualified)
            return "the qualified flag";
        if (!m_path.hasDirectory(m_model.hasDirectory ? &m_model.directory : nullptr))
            return "the base directory";
        return nullptr;
    }

    /// The base name and its parts, and the full path.
    const char *comparePieces() const
    {
        if (differs(&CRmUiPathname::GetBasename, &KxPathModel::getBasename))
            return "GetBasename";
        if (differs(&CRmUiPathname::GetFilename, &KxPathModel::getFilename))
            return "GetFilename";
        if (differs(&CRmUiPathname::GetExtension, &KxPathModel::getExtension))
            return "GetExtension";
        CString full;
        std::wstring expected;
        if (m_path.GetFullPath(full) != m_model.getFullPath(expected) || full != expected)
            return "GetFullPath";
        return nullptr;
    }

    const char *compareExtensions(const std::wstring &list)
    {
        const bool expected = m_model.verifyExtension(list);
        m_seen[ExtensionListed] += expected && !list.empty();
        return m_path.VerifyExtension(list.c_str()) == expected ? nullptr : "VerifyExtension";
    }

    const char *compareDisplayName(int room)
    {
        CString name(L"left over");
        m_path.GetDisplayName(name, room);
        const std::wstring expected = m_model.displayName(room);
        m_seen[Shortened] += expected.size() < m_model.path.size();
        m_seen[BaseAlone] += expected.size() < m_model.path.size() && expected == m_model.basename();
        return name == expected ? nullptr : "GetDisplayName";
    }

    const char *compareMatch(const std::wstring &text)
    {
        const bool expected = m_model.pathMatch(text);
        m_seen[MatchFound] += expected;
        return m_path.PathMatch(text.c_str()) == expected ? nullptr : "PathMatch";
    }

    const char *compareNames(const std::wstring &text)
    {
        const CString name(text);
        for (const bool wildcards : {false, true}) {
            const bool isFilename = kxIsFilename(text, wildcards);
            const bool isSegment = kxIsSegment(text, wildcards);
            m_seen[GoodFilename] += isFilename;
            m_seen[GoodSegment] += isSegment;
            if (m_volume.ValidateFilename(&name, wildcards) != isFilename)
                return wildcards ? "ValidateFilename with wildcards" : "ValidateFilename";
            if (m_volume.ValidateSegment(&name, wildcards) != isSegment)
                return wildcards ? "ValidateSegment with wildcards" : "ValidateSegment";
        }
        return nullptr;
    }

private:
    struct Probe : CRmUiPathname
    {
        path_category category() const { return m_category; }
        bool isQualified() const { return m_qualified; }
        /// Null is for none.
        bool hasDirectory(const std::wstring *expected) const
        {
            return expected ? m_directory && *m_directory == *expected : !m_directory;
        }
    };
    struct Step
    {
        Operation operation;
        std::wstring text;
    };

    static std::wstring shown(const wchar_t *text) { return text ? text : L"null"; }

    static std::string readable(const std::wstring &text)
    {
        std::string readable = "\"";
        for (const wchar_t character : text) {
            char escaped[16];
            const bool isPlain = character >= L' ' && character < 0x7F;
            const auto code = static_cast<unsigned int>(character);
            std::snprintf(escaped, sizeof escaped, isPlain ? "%c" : "\\x{%X}", code);
            readable += escaped;
        }
        return readable + "\"";
    }

    path_type typeToldByPath() const
    {
        const path_type type = m_path.GetPathType();
        return type == kFilePath || type == kDirPath ? type : kNewPath;
    }

    bool differs(void (CRmUiPathname::*get)(CString &) const,
                 void (KxPathModel::*expect)(std::wstring &) const) const
    {
        CString text(L"left alone");
        std::wstring expected(L"left alone");
        (m_path.*get)(text);
        (m_model.*expect)(expected);
        return text != expected;
    }

    KxPathModel::Look m_look;
    CRmUiPathname m_base;
    CString m_baseText;
    Probe m_path;
    KxPathModel m_model;
    CRmUiNTFSVolumeDescriptor m_volume{L"C:"};
    std::vector<Step> m_steps{{OperationCount, {}}};
    long m_seen[EventCount] = {};
    long m_answered[OperationCount][5] = {};
};
