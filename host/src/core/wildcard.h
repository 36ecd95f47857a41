#pragma once
// The one matching loop behind name patterns (ls, select) and gmatch.
#include <QString>

namespace host {

// Matches `text` against `pattern`, where '*' takes any run of characters and every other
// element is judged by `element(p, ch, &next)`: whether the element at pattern[p] takes
// the character ch, and where the pattern goes on after it. One backtrack point (the last
// '*') keeps it linear in practice.
template <typename Element>
bool match_with_stars(const QString& pattern, const QString& text, Element element) {
    int p = 0, t = 0, star = -1, mark = 0;
    while (t < text.size()) {
        int next = 0;
        if (p < pattern.size() && pattern[p] == QLatin1Char('*')) {
            star = p++;
            mark = t;
        } else if (p < pattern.size() && element(p, text[t], &next)) {
            p = next;
            ++t;
        } else if (star >= 0) {
            p = star + 1;
            t = ++mark;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == QLatin1Char('*'))
        ++p;
    return p == pattern.size();
}

} // namespace host
