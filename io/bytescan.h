#pragma once

#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace QX {

/// Finds what ends an unquoted field: the separator, LF or CR.
class FieldEnds {
public:
    /// How many bytes behind the end of the text are read, whatever they hold.
    static constexpr std::size_t beyond = 16;

    explicit FieldEnds(char separator) : separator_(separator) {}

    /// The first end in a text, or the end of the text.
    char const* find(char const* text, char const* end) const {
#if defined(__SSE2__)
        // Fields are short: one step of sixteen bytes ends most of them, where a call of memchr for each
        // of three characters would take several times as long.
        __m128i const separators = _mm_set1_epi8(separator_);
        __m128i const feeds = _mm_set1_epi8('\n');
        __m128i const returns = _mm_set1_epi8('\r');
        for (; text < end; text += 16) {
            __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(text));
            __m128i const lines =
                _mm_or_si128(_mm_cmpeq_epi8(bytes, feeds), _mm_cmpeq_epi8(bytes, returns));
            int const found = _mm_movemask_epi8(_mm_or_si128(lines, _mm_cmpeq_epi8(bytes, separators)));
            if (found != 0) {
                char const* const hit = text + __builtin_ctz(static_cast<unsigned>(found));
                return hit < end ? hit : end;
            }
        }
        return end;
#else
        while (text < end && *text != separator_ && *text != '\n' && *text != '\r') {
            ++text;
        }
        return text;
#endif
    }

private:
    char separator_;
};

/// The bytes at the front of a JSON string that stand for themselves, each a character: up to a quote, a
/// backslash, a control character or a byte beyond ASCII. Reads up to FieldEnds::beyond bytes behind the end.
inline std::size_t plainBytes(char const* text, char const* end) {
    char const* at = text;
#if defined(__SSE2__)
    __m128i const quotes = _mm_set1_epi8('"');
    __m128i const escapes = _mm_set1_epi8('\\');
    __m128i const blanks = _mm_set1_epi8(' ');
    for (; at < end; at += 16) {
        __m128i const bytes = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
        __m128i const marks =
            _mm_or_si128(_mm_cmpeq_epi8(bytes, quotes), _mm_cmpeq_epi8(bytes, escapes));
        __m128i const others =
            _mm_cmplt_epi8(bytes, blanks); // signed, so that bytes beyond ASCII are less
        int const found = _mm_movemask_epi8(_mm_or_si128(marks, others));
        if (found != 0) {
            at += __builtin_ctz(static_cast<unsigned>(found));
            break;
        }
    }
    return static_cast<std::size_t>((at < end ? at : end) - text);
#else
    while (at < end && *at != '"' && *at != '\\' && *at >= ' ' && *at < 0x7F) {
        ++at;
    }
    return static_cast<std::size_t>(at - text);
#endif
}

} // namespace QX
