// SPDX-License-Identifier: MIT
#pragma once

#include "KxClipboardBlocks.h"

#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

/// @file
/// What a copy of the clipboard's exit test does before main(), in it and while the process ends: a part for
/// each row, with what the row expects. For that one program.

namespace {

/// Set for a copy that uses the clipboard before main().
constexpr char atStartVariable[] = "KX_CLIPBOARD_AT_START";

std::string s_told; // in front of what writes to it at exit

void tell(const std::string &text)
{
    s_told += s_told.empty() ? text : " " + text;
}

void tell(UINT number)
{
    tell(std::to_string(number));
}

UINT one()
{
    return RegisterClipboardFormatW(L"application/x-one");
}

UINT two()
{
    return RegisterClipboardFormatW(L"application/x-two");
}

UINT three()
{
    return RegisterClipboardFormatW(L"application/x-three");
}

void attach()
{
    COleDataObject().AttachClipboard();
}

void tellNext(COleDataObject &data)
{
    tagFORMATETC record = {};
    if (data.GetNextFormat(&record))
        tell(record.cfFormat);
    else
        tell("end");
}

void tellFormats(COleDataObject &data)
{
    tagFORMATETC record = {};
    while (data.GetNextFormat(&record))
        tell(record.cfFormat);
    tell("end");
}

void tellFormats()
{
    COleDataObject data;
    data.BeginEnumFormats();
    tellFormats(data);
}

/// Whether a format is there, and what it holds.
void tellData(COleDataObject &data, UINT format)
{
    HGLOBAL block = data.GetGlobalData(cf(format));
    tell((data.IsDataAvailable(cf(format)) ? "yes:" : "no:")
         + (block ? kxContentsOf(block).toStdString() : std::string("null")));
}

void tellData(UINT format)
{
    COleDataObject data;
    tellData(data, format);
}

/// Writes at once what is written when main() is over.
void writeLate(char letter)
{
    if (::write(STDOUT_FILENO, &letter, 1) != 1)
        std::abort();
}

void registerLetters()
{
    for (char letter = 'a'; letter <= 'z'; ++letter)
        RegisterClipboardFormatW((L"application/x-" + std::wstring(1, wchar_t(letter))).c_str());
}

/// Uses the clipboard before main(), when it is asked to.
struct AtStart
{
    AtStart()
    {
        if (!qEnvironmentVariableIsSet(atStartVariable))
            return;
        tell(one());
        cache(one(), kxMovableBlock('A', "early"));
        data.AttachClipboard();
        tellData(data, one());
    }
    COleDataObject data;
};
AtStart s_atStart;

/// Tells at exit whether the block of the first format can still be read, and puts one under the second.
struct AtExit : COleDataObject
{
    ~AtExit()
    {
        HGLOBAL block = GetGlobalData(cf(one()));
        writeLate(block && kxContentsOf(block) == "late" ? '+' : '-');
        cache(two(), kxMovableBlock('B'));
    }
};

struct Part
{
    const char *name;
    void (*run)();
    const char *told;   ///< In main().
    const char *atExit; ///< Written afterwards, letters in order of the alphabet.
};

const Part freshParts[] = {
    {"starts empty",
     [] {
         tell(UINT(g_iCFIndex));
         tell(UINT(g_mapCF.size()));
         tell(UINT(g_tnorClipboardData.formats().size()));
         const auto &clipboard = g_platformClipboard;
         tell(std::to_string(clipboard.*&Reader::m_nEnumIndex));
         tell(std::to_string(clipboard.*&Reader::m_nEnumFormat));
         tell(clipboard.*&Reader::m_pData ? "attached" : "unattached");
     },
     "3456 0 0 -1 3455 unattached", ""},
    {"the first names get 3456 and 3457",
     [] {
         tell(one());
         tell(two());
         tell(one());
         tell(two());
         tell(three());
         tell(UINT(g_iCFIndex));
     },
     "3456 3457 3456 3457 3458 3459", ""},
    {"26 names get 26 numbers",
     [] {
         registerLetters();
         tell(RegisterClipboardFormatW(L"application/x-a"));
         tell(RegisterClipboardFormatW(L"application/x-z"));
         tell(UINT(g_mapCF.begin()->first));
         tell(UINT(g_mapCF.rbegin()->first));
         tell(UINT(g_mapCF.size()));
         tell(UINT(g_tnorClipboardData.formats().size()));
     },
     "3456 3481 3456 3481 26 26", ""},
    {"a number is not used again",
     [] {
         tell(one());
         g_mapCF.clear();
         tell(one());
         tell(two());
     },
     "3456 0 3457", ""},
    {"the next number is g_iCFIndex",
     [] {
         g_iCFIndex = 3460;
         tell(one());
         tell(two());
         tellFormats();
     },
     "3460 3461 13 2 0 0 end", ""},
    {"a name without letters",
     [] {
         tell(RegisterClipboardFormatW(L""));
         tell(two());
         tell(RegisterClipboardFormatW(L""));
         tellFormats();
     },
     "3456 3457 3456 13 2 3456 3457 end", ""},
    {"a name without letters is the first without letters",
     [] {
         HGLOBAL block = kxMovableBlock('A');
         tell(RegisterClipboardFormatW(L""));
         cache(3000, block);
         tell(RegisterClipboardFormatW(L""));
         GlobalFree(block);
     },
     "3456 3000", ""},
    {"no name uses no number",
     [] {
         tell(RegisterClipboardFormatW(nullptr));
         tell(one());
     },
     "0 3456", ""},

    {"without names there are two formats", [] { tellFormats(); }, "13 2 end", ""},
    {"an enumeration needs no beginning",
     [] {
         one();
         COleDataObject data;
         tellFormats(data);
     },
     "13 2 3456 end", ""},
    {"an enumeration needs no attaching",
     [] {
         one();
         two();
         tellFormats();
         tell(g_platformClipboard.*&Reader::m_pData ? "attached" : "unattached");
     },
     "13 2 3456 3457 end unattached", ""},
    {"names with and without data are told",
     [] {
         one();
         cache(two(), kxMovableBlock('A'));
         three();
         attach();
         tellFormats();
     },
     "13 2 3456 3457 3458 end", "Aa"},
    {"names are told once",
     [] {
         for (int i = 0; i < 3; ++i) {
             one();
             two();
         }
         tellFormats();
     },
     "13 2 3456 3457 end", ""},
    {"an unregistered number tells one more, 0",
     [] {
         one();
         two();
         HGLOBAL block = kxMovableBlock('A');
         cache(3000, block);
         tellFormats();
         tell(UINT(g_mapCF.size()));
         GlobalFree(block);
     },
     "13 2 3456 3457 0 end 3", ""},
    {"an unregistered number alone tells 0",
     [] {
         HGLOBAL block = kxMovableBlock('A');
         cache(3000, block);
         tellFormats();
         GlobalFree(block);
     },
     "13 2 0 end", ""},
    {"two unregistered numbers tell 0 twice",
     [] {
         one();
         HGLOBAL block = kxMovableBlock('A');
         cache(3000, block);
         cache(40000, block);
         tellFormats();
         GlobalFree(block);
     },
     "13 2 3456 0 0 end", ""},
    {"one unregistered number twice tells 0 once",
     [] {
         one();
         HGLOBAL block = kxMovableBlock('A');
         cache(3000, block);
         cache(3000, block);
         tellFormats();
         GlobalFree(block);
     },
     "13 2 3456 0 end", ""},
    {"a number asked for tells nothing more",
     [] {
         one();
         attach();
         tellData(3000);
         tellFormats();
     },
     "no:null 13 2 3456 end", ""},
    {"the next number cached is told",
     [] {
         HGLOBAL block = kxMovableBlock('A');
         cache(3456, block);
         tellFormats();
         tell(one());
         tellFormats();
         GlobalFree(block);
     },
     "13 2 3456 end 3456 13 2 3456 end", ""},
    {"a hole in the middle",
     [] {
         one();
         two();
         three();
         g_mapCF.erase(3457);
         HGLOBAL block = kxMovableBlock('A');
         cache(3000, block);
         tellFormats();
         GlobalFree(block);
     },
     "13 2 3456 0 3458 end", ""},
    {"the end stays the end",
     [] {
         one();
         COleDataObject data;
         tellFormats(data);
         tellNext(data);
         tellNext(data);
         data.BeginEnumFormats();
         tellFormats(data);
     },
     "13 2 3456 end end end 13 2 3456 end", ""},
    {"a name from the middle of an enumeration is told",
     [] {
         one();
         COleDataObject data;
         tellNext(data);
         tellNext(data);
         tellNext(data);
         two();
         tellFormats(data);
     },
     "13 2 3456 3457 end", ""},
    {"a name from behind the end is missed",
     [] {
         one();
         COleDataObject data;
         tellFormats(data);
         two();
         tellFormats(data);
         data.BeginEnumFormats();
         tellFormats(data);
     },
     "13 2 3456 end end 13 2 3456 3457 end", ""},
    {"from the middle back to the beginning",
     [] {
         one();
         COleDataObject data;
         tellNext(data);
         data.BeginEnumFormats();
         tellNext(data);
         tellNext(data);
         tellNext(data);
         data.BeginEnumFormats();
         tellFormats(data);
     },
     "13 13 2 3456 13 2 3456 end", ""},
    {"attaching leaves the position",
     [] {
         one();
         COleDataObject data;
         tellNext(data);
         data.AttachClipboard();
         tellFormats(data);
     },
     "13 2 3456 end", ""},
    {"other objects come and go and leave the position",
     [] {
         one();
         COleDataObject data;
         tellNext(data);
         attach();
         tellFormats(data);
     },
     "13 2 3456 end", ""},
    {"caching leaves the position",
     [] {
         one();
         COleDataObject data;
         tellNext(data);
         tellNext(data);
         cache(one(), kxMovableBlock('A'));
         cache(one(), kxMovableBlock('B'));
         cache(3000, nullptr);
         tellFormats(data);
     },
     "13 2 3456 0 end", "Bb"},
    {"reading leaves the position",
     [] {
         cache(one(), kxMovableBlock('A', "data"));
         COleDataObject data;
         data.AttachClipboard();
         tellNext(data);
         tellData(data, one());
         tellFormats(data);
     },
     "13 yes:data 2 3456 end", "Aa"},

    {"nothing is available before attaching",
     [] {
         cache(one(), kxMovableBlock('A', "data"));
         COleDataObject data;
         tellData(data, one());
         data.BeginEnumFormats();
         tellData(data, one());
         tell(data.AttachClipboard() ? "attached" : "unattached");
         tellData(data, one());
     },
     "no:null no:null attached yes:data", "Aa"},
    {"attaching comes before the names",
     [] {
         COleDataObject data;
         data.AttachClipboard();
         tell(g_platformClipboard.*&Reader::m_pData == &g_tnorClipboardData ? "attached" : "unattached");
         tellData(data, 3456);
         one();
         tellData(data, one());
         cache(one(), kxMovableBlock('A', "data"));
         tellData(data, one());
     },
     "attached no:null no:null yes:data", "Aa"},
    {"one attached object attaches all",
     [] {
         cache(one(), kxMovableBlock('A', "data"));
         COleDataObject early;
         attach();
         tellData(early, one());
         tellData(one());
     },
     "yes:data yes:data", "Aa"},
    {"a reader of its own attaches itself",
     [] {
         cache(one(), kxMovableBlock('A', "data"));
         KxPlatformClipboard reader;
         reader.attachClipboard();
         tell(reader.isDataAvailable(cf(one())) ? "yes" : "no");
         tellData(one());
     },
     "yes no:null", "Aa"},
};

const Part exitParts[] = {
    {"nothing was ever used", [] {}, "", ""},
    {"an object, and nothing on the clipboard", [] { attach(); }, "", ""},
    {"names without data",
     [] {
         one();
         two();
     },
     "", ""},
    {"names without data, attached",
     [] {
         one();
         two();
         attach();
     },
     "", ""},
    {"a block, attached",
     [] {
         cache(one(), kxMovableBlock('A'));
         attach();
     },
     "", "Aa"},
    {"a block, never attached", [] { cache(one(), kxMovableBlock('A')); }, "", "Aa"},
    {"a block of a shared file, attached",
     [] {
         CSharedFile file;
         unsigned char bytes[] = {'d', 'a', 't', 'a'};
         file.Write(bytes, 4);
         cache(one(), KxFreeLog::watchMovable(file.Detach(), 'A'));
         attach();
         tellData(one());
     },
     "yes:data", "Aa"},
    {"a block without bytes", [] { cache(one(), kxMovableBlock('A', "")); }, "", "A"},
    {"a fixed block, attached",
     [] {
         cache(one(), kxFixedBlock('A', "data"));
         attach();
         tellData(one());
     },
     "yes:data", "A"},
    {"a fixed block, never attached", [] { cache(one(), kxFixedBlock('A', "f")); }, "", "A"},
    {"a locked block",
     [] {
         HGLOBAL block = kxMovableBlock('A');
         GlobalLock(block);
         cache(one(), block);
         attach();
     },
     "", "Aa"},
    {"a block that was read",
     [] {
         cache(one(), kxMovableBlock('A', "data"));
         attach();
         tellData(one());
         tellData(one());
     },
     "yes:data yes:data", "Aa"},
    {"several formats, attached",
     [] {
         cache(one(), kxMovableBlock('A'));
         cache(two(), kxFixedBlock('B'));
         cache(three(), kxMovableBlock('C'));
         attach();
     },
     "", "AaBCc"},
    {"several formats, never attached",
     [] {
         cache(one(), kxMovableBlock('A'));
         cache(two(), kxFixedBlock('B'));
         cache(three(), kxMovableBlock('C'));
     },
     "", "AaBCc"},
    {"formats with and without data",
     [] {
         one();
         cache(two(), kxMovableBlock('B'));
         three();
         attach();
     },
     "", "Bb"},
    {"26 formats",
     [] {
         registerLetters();
         for (int i = 0; i < 26; ++i)
             cache(UINT(3456 + i), kxMovableBlock(static_cast<char>('A' + i)));
         attach();
     },
     "", "AaBbCcDdEeFfGgHhIiJjKkLlMmNnOoPpQqRrSsTtUuVvWwXxYyZz"},
    {"replaced blocks, attached",
     [] {
         attach();
         cache(one(), kxMovableBlock('A'));
         cache(one(), kxMovableBlock('B'));
         cache(one(), kxMovableBlock('C'));
         tell(KxFreeLog::take().toStdString());
     },
     "aAbB", "Cc"},
    {"replaced blocks, never attached",
     [] {
         cache(one(), kxMovableBlock('A'));
         cache(one(), kxMovableBlock('B'));
         cache(one(), kxMovableBlock('C'));
         tell(KxFreeLog::take().toStdString());
     },
     "aAbB", "Cc"},
    {"fixed by movable and back",
     [] {
         cache(one(), kxFixedBlock('A'));
         cache(one(), kxMovableBlock('B'));
         cache(one(), kxFixedBlock('C'));
         tell(KxFreeLog::take().toStdString());
     },
     "AbB", "C"},
    {"the same block again",
     [] {
         HGLOBAL block = kxMovableBlock('A', "data");
         cache(one(), block);
         cache(one(), block);
         attach();
         tellData(one());
         tell("freed:" + KxFreeLog::take().toStdString());
     },
     "yes:data freed:", "Aa"},
    {"one block under two formats, attached",
     [] {
         HGLOBAL block = kxMovableBlock('A', "data");
         cache(one(), block);
         cache(two(), block);
         attach();
         tellData(one());
         tellData(two());
         tell("freed:" + KxFreeLog::take().toStdString());
     },
     "yes:data yes:data freed:", "Aa"},
    {"one block under two formats, never attached",
     [] {
         HGLOBAL block = kxMovableBlock('A');
         cache(one(), block);
         cache(two(), block);
     },
     "", "Aa"},
    {"one fixed block under two formats",
     [] {
         HGLOBAL block = kxFixedBlock('A');
         cache(one(), block);
         cache(two(), block);
         attach();
     },
     "", "A"},
    {"one block under three formats, others between",
     [] {
         HGLOBAL block = kxMovableBlock('A');
         cache(one(), block);
         cache(two(), kxMovableBlock('B'));
         cache(three(), block);
         cache(RegisterClipboardFormatW(L"application/x-four"), block);
         attach();
     },
     "", "AaBb"},
    {"one block under two formats, replaced under both",
     [] {
         HGLOBAL block = kxMovableBlock('A');
         cache(one(), block);
         cache(two(), block);
         cache(one(), kxMovableBlock('B'));
         cache(two(), kxMovableBlock('C'));
         tell(KxFreeLog::take().toStdString());
     },
     "aA", "BbCc"},
    {"one block under two formats, replaced under the first",
     [] {
         HGLOBAL block = kxMovableBlock('A', "data");
         cache(one(), block);
         cache(two(), block);
         cache(one(), kxMovableBlock('B'));
         attach();
         tellData(two());
         tell("freed:" + KxFreeLog::take().toStdString());
     },
     "yes:data freed:", "AaBb"},
    {"one block under two formats, replaced under the second",
     [] {
         HGLOBAL block = kxMovableBlock('A', "data");
         cache(one(), block);
         cache(two(), block);
         cache(two(), kxMovableBlock('B'));
         attach();
         tellData(one());
         tell("freed:" + KxFreeLog::take().toStdString());
     },
     "yes:data freed:", "AaBb"},
    {"no block",
     [] {
         cache(one(), nullptr);
         attach();
         tellData(one());
     },
     "no:null", ""},
    {"a null block in the place of one",
     [] {
         cache(one(), kxMovableBlock('A'));
         cache(one(), nullptr);
         attach();
         tellData(one());
         tell("freed:" + KxFreeLog::take().toStdString());
     },
     "no:null freed:aA", ""},
    {"a block whose number is forgotten",
     [] {
         cache(one(), kxMovableBlock('A'));
         cache(two(), kxFixedBlock('B'));
         attach();
         g_mapCF.clear();
         tellData(3456);
     },
     "no:null", "AaB"},
    {"a block whose number has another name",
     [] {
         cache(one(), kxMovableBlock('A'));
         attach();
         g_mapCF[3456] = L"application/x-other";
         tellData(3456);
     },
     "no:null", "Aa"},
    {"what is not stored stays the caller's",
     [] {
         HGLOBAL block = kxMovableBlock('A', "mine");
         cache(3000, block);
         cache(RegisterClipboardFormatW(L"text/uri-list"), block);
         cache(RegisterClipboardFormatW(L""), block);
         attach();
         tell("freed:" + KxFreeLog::take().toStdString());
         tell(kxContentsOf(block).toStdString());
         GlobalFree(block);
         tell(KxFreeLog::take().toStdString());
     },
     "freed: mine aA", ""},
    {"a static data object",
     [] {
         static COleDataObject data;
         cache(one(), kxMovableBlock('A', "data"));
         data.AttachClipboard();
         tellData(data, one());
     },
     "yes:data", "Aa"},
    {"a static data object that reads as it goes",
     [] {
         static AtExit data;
         data.AttachClipboard();
         cache(one(), kxMovableBlock('A', "late"));
     },
     "", "+AaBb"},
    {"a static reader of its own",
     [] {
         static KxPlatformClipboard reader;
         reader.attachClipboard();
         cache(one(), kxMovableBlock('A'));
     },
     "", "Aa"},
    {"a static reader and attached objects",
     [] {
         static KxPlatformClipboard reader;
         reader.attachClipboard();
         attach();
         cache(one(), kxMovableBlock('A'));
         cache(two(), kxMovableBlock('B'));
     },
     "", "AaBb"},
    {"exit() in the middle of a function",
     [] {
         COleDataObject data;
         data.AttachClipboard();
         cache(one(), kxMovableBlock('A'));
         KxFreeLog::echo();
         writeLate(':');
         std::exit(0);
     },
     "", "Aa"},
    {"an application that came and went",
     [] {
         int argc = 1;
         char name[] = "copy";
         char *argv[] = {name, nullptr};
         const QGuiApplication application(argc, argv);
         QGuiApplication::clipboard()->setText(QStringLiteral("of the desktop"));
         cache(one(), kxMovableBlock('A', "data"));
         attach();
         tellData(one());
     },
     "yes:data", "Aa"},
};

const Part *partOf(const char *name)
{
    const auto isIt = [name](const Part &part) { return std::strcmp(part.name, name) == 0; };
    const auto fresh = std::find_if(std::begin(freshParts), std::end(freshParts), isIt);
    if (fresh != std::end(freshParts))
        return fresh;
    const auto atExit = std::find_if(std::begin(exitParts), std::end(exitParts), isIt);
    return atExit != std::end(exitParts) ? atExit : nullptr;
}

/// The parts whose expectation is of their row's own.
void runOtherPart(const std::string &name)
{
    if (name == "at start") {
        tell(two());
        tellData(one());
        tellFormats();
    } else if (name == "order at exit") {
        QObject::connect(&g_tnorClipboardData, &QObject::destroyed, [] { writeLate('!'); });
        cache(one(), kxMovableBlock('A'));
        attach();
    } else if (name == "leak") {
        kxMovableBlock('A');
    } else if (name == "free twice") {
        HGLOBAL block = kxMovableBlock('A');
        cache(one(), block);
        GlobalFree(block);
    } else {
        std::abort();
    }
}

/// The copy's main(): what it told, a colon, and whatever is written afterwards.
int runPart(const char *name)
{
    if (const Part *part = partOf(name))
        part->run();
    else
        runOtherPart(name);
    std::printf("%s:", s_told.c_str());
    std::fflush(stdout);
    s_told = std::string();
    KxFreeLog::echo();
    return 0;
}

} // namespace
