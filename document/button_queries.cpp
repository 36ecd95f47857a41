#include "document/button_queries.h"

#include <QSet>
#include <QVector>
#include <algorithm>

bool match_buttons(const QList<picker_button*>& buttons, const QSet<QString>& selected) {
    bool changed = false;
    for (picker_button* b : buttons) {
        const int n = b->targets.size();
        b->target_selected.resize(n);
        int count = 0;
        for (int i = 0; i < n; ++i) {
            const bool hit = selected.contains(b->targets[i]);
            b->target_selected[i] = hit;
            count += hit ? 1 : 0;
        }
        const quint16 state = count == n ? 1 : count > 0 ? 2 : 0;
        if (state != b->selected)
            changed = true;
        b->selected = state;
    }
    return changed;
}

namespace {

// A name gives a namespace at each colon outside brackets, and at most this many: Maya
// nests namespaces a few levels deep, while a name of thousands of colons would give a
// namespace at each, gigabytes of them from a short file. Those nearest the root count.
constexpr int max_namespace_depth = 32;

void add_namespaces_of(const QString& name, QStringList& list, QSet<QString>& known) {
    QVector<int> colons; // from the end
    bool in_brackets = false;
    for (int i = name.size() - 1; i >= 0; --i) {
        const QChar c = name[i];
        if (in_brackets)
            in_brackets = c != QLatin1Char('[');
        else if (c == QLatin1Char(']'))
            in_brackets = true;
        else if (c == QLatin1Char(':'))
            colons.append(i);
    }
    for (int k = qMax(0, int(colons.size()) - max_namespace_depth); k < colons.size(); ++k) {
        const QString ns = name.left(colons[k]);
        if (!known.contains(ns)) {
            known.insert(ns);
            list.append(ns);
        }
    }
}

} // namespace

void collect_button_namespaces(const QList<picker_button*>& buttons, QStringList& list) {
    QSet<QString> known(list.begin(), list.end());
    for (const picker_button* b : buttons) {
        if (b->kind != 0)
            continue;
        for (const QString& target : b->targets)
            add_namespaces_of(target, list, known);
    }
    // Sorted as the host's lower-casing sees the names: ASCII letters only.
    auto lowered = [](const QString& s) {
        QString out = s;
        for (QChar& c : out) {
            if (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
                c = QChar(c.unicode() + 32);
        }
        return out;
    };
    std::stable_sort(list.begin(), list.end(),
                     [&](const QString& a, const QString& b) { return lowered(a) < lowered(b); });
}

QStringList distinct_names(const QStringList& names) {
    QStringList out;
    QSet<QString> seen;
    out.reserve(names.size());
    for (const QString& n : names) {
        if (!seen.contains(n)) {
            seen.insert(n);
            out.append(n);
        }
    }
    return out;
}
