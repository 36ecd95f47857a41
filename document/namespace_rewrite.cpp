#include "document/namespace_rewrite.h"

namespace {

const QString root = QStringLiteral(":");

// The first rule that applies to the target for the pair at `j`; false when none does.
bool rename_target(QString& target, const QString& from, const QString& to) {
    const bool qualified = target.contains(QLatin1Char(':'));
    if (!qualified && from == root) {
        if (to != root)
            target.prepend(to);
        return true;
    }
    if (!target.startsWith(from))
        return false;
    target = (to == root ? QString() : to) + target.mid(from.size());
    return true;
}

bool is_name_char(QChar c) {
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
           (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
           (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char(':') ||
           c == QLatin1Char('.') || c == QLatin1Char('_');
}

QString rename_token(const QString& token, const QStringList& from_list,
                     const QStringList& to_list) {
    for (int j = from_list.size() - 1; j >= 0; --j) {
        if (token.startsWith(from_list[j]))
            return to_list[j] + token.mid(from_list[j].size());
    }
    return token;
}

QString rename_script(const QString& text, const QStringList& from_list,
                      const QStringList& to_list) {
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
        out += rename_token(text.mid(i, end - i), from_list, to_list);
        i = end;
    }
    return out;
}

} // namespace

QString namespace_prefix(const QString& name, bool keep_empty) {
    if ((keep_empty && name.isEmpty()) || name.endsWith(QLatin1Char(':')))
        return name;
    return name + QLatin1Char(':');
}

void rename_namespaces(picker_button_data& button, const QStringList& from_list,
                       const QStringList& to_list) {
    const int pairs = qMin(from_list.size(), to_list.size());
    if (button.kind == 1) {
        if (!button.targets.isEmpty())
            button.targets[0] =
                rename_script(button.targets[0], from_list.mid(0, pairs), to_list.mid(0, pairs));
        return;
    }
    for (QString& target : button.targets) {
        for (int j = pairs - 1; j >= 0; --j) {
            if (rename_target(target, from_list[j], to_list[j]))
                break;
        }
    }
}
