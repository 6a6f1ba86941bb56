// SPDX-License-Identifier: MIT
#pragma once

#include <KxAfxFile.h>
#include <KxAfxOle.h>
#include <windows.h>

#include <KxWinMemory.h>

#include <QtCore/QByteArray>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#  define KX_HAS_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#  if __has_feature(address_sanitizer)
#    define KX_HAS_ADDRESS_SANITIZER 1
#  endif
#endif
#ifndef KX_HAS_ADDRESS_SANITIZER
#  define KX_HAS_ADDRESS_SANITIZER 0
#endif

/// \file
/// What the tests of the clipboard and the programs that they start need: blocks, formats, and a log of which
/// blocks are freed, and when. To be included by one file of a program, as it stands in for free(). Under the
/// address sanitizer it listens to the sanitizer's free() instead, which sees a second free() and a use after
/// it by itself.

/// The log of what was freed of the watched blocks, a letter each: the capital for the record of a movable
/// block or for a fixed block, the small one for the data. Without the sanitizer, what is watched is never
/// freed in truth, so that its address is not given out again and a second letter means a second free().
class KxFreeLog
{
public:
    static HGLOBAL watchMovable(HGLOBAL block, char capital)
    {
        const auto *record = static_cast<const KxGlobalMemory *>(block);
        watch(record, capital);
        if (record->data)
            watch(record->data, static_cast<char>(capital - 'A' + 'a'));
        return block;
    }
    static HGLOBAL watchFixed(HGLOBAL block, char capital)
    {
        watch(static_cast<char *>(block) - bytesInFront(), capital);
        return block;
    }

    /// The letters since the last call.
    static QByteArray take()
    {
        const QByteArray text(s_text, s_length);
        s_length = 0;
        return text;
    }

    /// From now on the letters go straight to standard output, even when nothing but the C library is left.
    static void echo() { s_echo = true; }

    /// Called by free(). \return whether it is watched
    static bool note(const volatile void *pointer)
    {
        const auto address = reinterpret_cast<std::uintptr_t>(pointer);
        if (address <= s_sample && s_sample - address < 64)
            s_ofSample = address;
        const int count = s_count.load(std::memory_order_acquire);
        const std::uintptr_t key = keyOf(pointer);
        for (int i = 0; i < count; ++i) {
            if (s_watched[i].key == key) {
                write(s_watched[i].letter);
                if (KX_HAS_ADDRESS_SANITIZER)
                    s_watched[i].key = 0; // of no address; the real one may be given out again
                return true;
            }
        }
        return false;
    }

private:
    // The complement of the address, which the leak checker does not take for a pointer.
    static std::uintptr_t keyOf(const volatile void *pointer)
    {
        return ~reinterpret_cast<std::uintptr_t>(pointer);
    }

    /// How far the handle of a fixed block stands behind what is freed for it, learned from one.
    static std::ptrdiff_t bytesInFront()
    {
        static std::ptrdiff_t bytes = -1;
        if (bytes < 0) {
            HGLOBAL sample = GlobalAlloc(GMEM_FIXED, 1);
            s_sample = reinterpret_cast<std::uintptr_t>(sample);
            GlobalFree(sample);
            if (s_ofSample == 0)
                qFatal("a fixed block is not freed with free()");
            bytes = static_cast<std::ptrdiff_t>(s_sample - s_ofSample);
            s_sample = 0;
        }
        return bytes;
    }

    static void watch(const void *pointer, char letter)
    {
        const int count = s_count.load(std::memory_order_relaxed);
        if (count == capacity)
            qFatal("too many watched blocks");
        s_watched[count] = {keyOf(pointer), letter};
        s_count.store(count + 1, std::memory_order_release);
    }

    static void write(char letter)
    {
        if (s_echo && ::write(STDOUT_FILENO, &letter, 1) == 1)
            return;
        if (s_length < capacity)
            s_text[s_length++] = letter;
    }

    static constexpr int capacity = 512;
    struct Watched {
        std::uintptr_t key;
        char letter;
    };
    static inline Watched s_watched[capacity] = {};
    static inline std::atomic<int> s_count{0};
    static inline char s_text[capacity] = {};
    static inline int s_length = 0;
    static inline bool s_echo = false;
    static inline std::uintptr_t s_sample = 0;
    static inline std::uintptr_t s_ofSample = 0;
};

#if KX_HAS_ADDRESS_SANITIZER

extern "C" int __sanitizer_install_malloc_and_free_hooks(
    void (*allocated)(const volatile void *, std::size_t), void (*freed)(const volatile void *));

inline const int kxFreeHook = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void *, std::size_t) {},
    [](const volatile void *pointer) { KxFreeLog::note(pointer); });

#else

extern "C" void __libc_free(void *);

// The one that every library of the program calls.
extern "C" Q_DECL_EXPORT void free(void *pointer) noexcept
{
    if (!KxFreeLog::note(pointer))
        __libc_free(pointer);
}

#endif

/// A movable block with these bytes, watched under a capital letter.
inline HGLOBAL kxMovableBlock(char capital, const QByteArray &bytes = QByteArrayLiteral("bytes"))
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, static_cast<SIZE_T>(bytes.size()));
    if (void *data = GlobalLock(block)) {
        std::memcpy(data, bytes.constData(), static_cast<std::size_t>(bytes.size()));
        GlobalUnlock(block);
    }
    return KxFreeLog::watchMovable(block, capital);
}

/// A fixed block with these bytes, watched under a capital letter.
inline HGLOBAL kxFixedBlock(char capital, const QByteArray &bytes = QByteArrayLiteral("bytes"))
{
    HGLOBAL block = GlobalAlloc(GMEM_FIXED, static_cast<SIZE_T>(bytes.size()));
    std::memcpy(block, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return KxFreeLog::watchFixed(block, capital);
}

/// What a block holds, read as a program reads it.
inline QByteArray kxContentsOf(HGLOBAL block)
{
    const auto *data = static_cast<const char *>(GlobalLock(block));
    if (!data)
        return QByteArray();
    const QByteArray bytes(data, static_cast<int>(GlobalSize(block)));
    GlobalUnlock(block);
    return bytes;
}

/// What is protected becomes nameable.
struct Reader : KxPlatformClipboard {
    using KxPlatformClipboard::m_nEnumFormat;
    using KxPlatformClipboard::m_nEnumIndex;
    using KxPlatformClipboard::m_pData;
};

/// The names of the formats of these tests, none of them twice.
inline CString freshName()
{
    static int count = 0;
    return CString((L"application/x-fresh-" + std::to_wstring(++count)).c_str());
}

inline UINT freshFormat()
{
    return RegisterClipboardFormatW(freshName());
}

inline CLIPFORMAT cf(UINT format)
{
    return static_cast<CLIPFORMAT>(format);
}

inline void cache(UINT format, HGLOBAL block)
{
    COleDataSource().CacheGlobalData(format, block);
}

/// What an attached object sees under a format.
inline HGLOBAL cached(UINT format)
{
    COleDataObject data;
    data.AttachClipboard();
    return data.GetGlobalData(cf(format));
}

inline bool isAvailable(UINT format)
{
    COleDataObject data;
    data.AttachClipboard();
    return data.IsDataAvailable(cf(format));
}

inline QString mimeNameOf(UINT format)
{
    return QString::fromStdWString(g_mapCF.at(static_cast<int>(format)));
}
