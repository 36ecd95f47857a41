#include "string_scan.h"

#include <QtAlgorithms>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace host::mel {

const QChar* find_string_stop(const QChar* from, const QChar* end) {
#if defined(__SSE2__)
    const __m128i quote = _mm_set1_epi16('"');
    const __m128i backslash = _mm_set1_epi16('\\');
    const __m128i newline = _mm_set1_epi16('\n');
    for (; end - from >= 8; from += 8) {
        const __m128i chars = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        const __m128i stops = _mm_or_si128(
            _mm_or_si128(_mm_cmpeq_epi16(chars, quote), _mm_cmpeq_epi16(chars, backslash)),
            _mm_cmpeq_epi16(chars, newline));
        // Two mask bits a character.
        if (const uint mask = uint(_mm_movemask_epi8(stops)))
            return from + qCountTrailingZeroBits(mask) / 2;
    }
#endif
    while (from < end && *from != QLatin1Char('"') && *from != QLatin1Char('\\') &&
           *from != QLatin1Char('\n'))
        ++from;
    return from;
}

} // namespace host::mel
