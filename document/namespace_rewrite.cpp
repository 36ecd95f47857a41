#include "document/namespace_rewrite.h"

#include <algorithm>

namespace {

const QString root = QStringLiteral(":");

bool is_name_char(QChar c) {
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
           (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
           (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char(':') ||
           c == QLatin1Char('.') || c == QLatin1Char('_');
}

// The first rule that applies to the target, tried from the last pair down: an unqualified
// target takes the root's pair, a qualified one the pair of its longest known prefix.
void rename_target(QString& target, const namespace_rewrite& pairs) {
    if (!target.contains(QLatin1Char(':'))) {
        const int j = pairs.root_pair();
        if (j >= 0 && pairs.to(j) != root)
            target.prepend(pairs.to(j));
        return;
    }
    const int j = pairs.pair_for(target);
    if (j >= 0)
        target = (pairs.to(j) == root ? QString() : pairs.to(j)) + target.mid(pairs.from(j).size());
}

QString rename_token(const QString& token, const namespace_rewrite& pairs) {
    const int j = pairs.pair_for(token);
    return j < 0 ? token : pairs.to(j) + token.mid(pairs.from(j).size());
}

QString rename_script(const QString& text, const namespace_rewrite& pairs) {
    QString out;
    out.reserve(text.size());
    for (int i = 0; i < text.size();) {
        if (!is_name_char(text[i])) {
            out += text[i++];
            continue;
        }
        int end = i;
        while (end < text.size() && is_name_char(text[end]))
            ++end;
        out += rename_token(text.mid(i, end - i), pairs);
        i = end;
    }
    return out;
}

} // namespace

namespace_rewrite::namespace_rewrite(const QStringList& from_list, const QStringList& to_list) {
    const int pairs = qMin(from_list.size(), to_list.size());
    from_ = from_list.mid(0, pairs);
    to_ = to_list.mid(0, pairs);
    for (int j = 0; j < pairs; ++j) {
        last_pair_.insert(from_[j], j);
        if (from_[j] == root)
            root_pair_ = j;
        const int colons = from_[j].count(QLatin1Char(':'));
        if (!colon_counts_.contains(colons))
            colon_counts_.append(colons);
    }
    std::sort(colon_counts_.begin(), colon_counts_.end());
}

int namespace_rewrite::pair_for(const QString& name) const {
    // Every old namespace ends with its colon: one that begins the name is the name up to
    // and with one of its colons, the one whose count matches.
    int best = -1, colons = 0, next = 0;
    for (int i = 0; i < name.size() && next < colon_counts_.size(); ++i) {
        if (name[i] != QLatin1Char(':') || ++colons != colon_counts_[next])
            continue;
        ++next;
        const auto it = last_pair_.constFind(name.left(i + 1));
        if (it != last_pair_.constEnd())
            best = qMax(best, *it);
    }
    return best;
}

QString namespace_prefix(const QString& name, bool keep_empty) {
    if ((keep_empty && name.isEmpty()) || name.endsWith(QLatin1Char(':')))
        return name;
    return name + QLatin1Char(':');
}

void rename_namespaces(picker_button_data& button, const namespace_rewrite& pairs) {
    if (pairs.isEmpty())
        return;
    if (button.kind == 1) {
        if (!button.targets.isEmpty())
            button.targets[0] = rename_script(button.targets[0], pairs);
        return;
    }
    for (QString& target : button.targets)
        rename_target(target, pairs);
}
