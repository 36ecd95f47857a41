#include "scene.h"

#include "wildcard.h"
#include "node_types.h"

#include <QRegularExpression>

namespace host {

namespace {

const QStringList builtin_namespaces{"UI", "shared"};

// The whole text must match: `$` alone would also take a name that ends in a line break.
bool valid_namespace_part(const QString& part) {
    static const QRegularExpression re(
        QRegularExpression::anchoredPattern(QStringLiteral("[A-Za-z_][A-Za-z0-9_]*")));
    return re.match(part).hasMatch();
}

} // namespace

QString namespace_of(const QString& name) {
    const int colon = name.lastIndexOf(QLatin1Char(':'));
    return colon < 0 ? QString() : name.left(colon);
}

bool wildcard_match(const QString& pattern, const QString& text) {
    return match_with_stars(pattern, text, [&pattern](int p, QChar ch, int* next) {
        *next = p + 1;
        return pattern[p] == QLatin1Char('?') || pattern[p] == ch;
    });
}

scene::scene() {
    clear();
}

void scene::clear() {
    ++generation_;
    ++attribute_generation_;
    time = time_state();
    held.clear();
    nodes_.clear();
    live_ = 0;
    by_name_.clear();
    siblings_.clear();
    next_number_.clear();
    roots_.clear();
    namespaces_ = builtin_namespaces;
    namespace_set_ = QSet<QString>(builtin_namespaces.begin(), builtin_namespaces.end());
    children_.clear();
    children_.insert(QString(), builtin_namespaces);
    namespace_nodes_.clear();
    current_.clear();
    file_info_.clear();
    file_info_index_.clear();
    name_.clear();
    modified_ = false;
}

bool scene::valid_node_name(const QString& name) {
    static const QRegularExpression re(QRegularExpression::anchoredPattern(
        QStringLiteral("([A-Za-z_][A-Za-z0-9_]*:)*[A-Za-z_][A-Za-z0-9_]*")));
    return re.match(name).hasMatch();
}

// ---------------------------------------------------------------- namespaces

QString scene::absolute_namespace(const QString& name) const {
    if (name.isEmpty() || name == QLatin1String(":"))
        return QString();
    if (name.startsWith(QLatin1Char(':')))
        return name.mid(1);
    return current_.isEmpty() ? name : current_ + QLatin1Char(':') + name;
}

bool scene::namespace_exists(const QString& full) const {
    return full.isEmpty() || namespace_set_.contains(full);
}

bool scene::ensure_namespace(const QString& full) {
    ++generation_;
    if (full.isEmpty())
        return true;
    if (namespace_set_.contains(full))
        return true;
    const QStringList parts = full.split(QLatin1Char(':'));
    QString path;
    for (const QString& part : parts) {
        if (!valid_namespace_part(part))
            return false;
        const QString parent = path;
        path = path.isEmpty() ? part : path + QLatin1Char(':') + part;
        if (!namespace_set_.contains(path)) {
            namespaces_.append(path);
            namespace_set_.insert(path);
            children_[parent].append(path);
        }
    }
    return true;
}

QStringList scene::child_namespaces(const QString& parent_full) const {
    return children_.value(parent_full);
}

bool scene::namespace_is_empty(const QString& full) const {
    return namespace_nodes_.value(full) == 0 && child_namespaces(full).isEmpty();
}

bool scene::remove_namespace(const QString& full) {
    ++generation_;
    if (full.isEmpty() || builtin_namespaces.contains(full) || !namespace_set_.contains(full))
        return false;
    if (!namespace_is_empty(full))
        return false;
    namespaces_.removeAll(full);
    namespace_set_.remove(full);
    children_[namespace_of(full)].removeAll(full);
    if (current_ == full || current_.startsWith(full + QLatin1Char(':')))
        current_.clear();
    return true;
}

bool scene::set_current_namespace(const QString& full) {
    if (!namespace_exists(full))
        return false;
    current_ = full;
    return true;
}

// ---------------------------------------------------------------- nodes

bool scene::sibling_clash(const QString& name, int parent) const {
    return siblings_.contains(qMakePair(parent, name));
}

namespace {

// "pCube12" -> "pCube" and 12; a name without a trailing number, or with a leading zero in
// it, gives no number: it is none of the names unique_name makes.
QString numbered_stem(const QString& name, int* number) {
    int digits = name.size();
    while (digits > 0 && name[digits - 1].isDigit())
        --digits;
    bool ok = false;
    *number =
        digits < name.size() && name[digits] != QLatin1Char('0') ? name.mid(digits).toInt(&ok) : 0;
    if (!ok)
        *number = 0;
    return name.left(digits);
}

} // namespace

QString scene::unique_name(const QString& base) const {
    if (!by_name_.contains(base))
        return base;
    // "pCube1" counts on from 1; a trailing number is replaced by the next free one.
    int unused = 0;
    const QString stem = numbered_stem(base, &unused);
    int& n = next_number_[stem];
    for (n = qMax(n, 1);; ++n) {
        const QString candidate = stem + QString::number(n);
        if (!by_name_.contains(candidate))
            return candidate;
    }
}

void scene::index_name(int id) {
    const node& n = nodes_[size_t(id)];
    by_name_[n.name].append(id);
    siblings_.insert(qMakePair(n.parent, n.name));
}

void scene::unindex_name(int id) {
    const node& n = nodes_[size_t(id)];
    siblings_.remove(qMakePair(n.parent, n.name));
    auto it = by_name_.find(n.name);
    if (it == by_name_.end())
        return;
    it->removeAll(id);
    if (!it->isEmpty())
        return;
    by_name_.erase(it);
    // A freed "a7" is again the lowest free number of "a" if it is below the hint.
    int number = 0;
    const QString stem = numbered_stem(n.name, &number);
    const auto hint = next_number_.find(stem);
    if (number > 0 && hint != next_number_.end() && number < *hint)
        *hint = number;
}

int scene::create_node(const QString& type, const QString& name, int parent, bool make_unique) {
    ++generation_;
    if (parent >= 0 && (parent >= int(nodes_.size()) || !nodes_[size_t(parent)].alive))
        return -1;
    QString final_name = name.isEmpty() ? type + QLatin1Char('1') : name;
    if (final_name.startsWith(QLatin1Char(':')))
        final_name = final_name.mid(1);
    if (!valid_node_name(final_name))
        return -1;
    if (make_unique)
        final_name = unique_name(final_name);
    else if (sibling_clash(final_name, parent))
        return -1;
    const QString ns = namespace_of(final_name);
    // A namespace that holds live nodes exists: skip the linear search of the namespace list.
    if (namespace_nodes_.value(ns) == 0 && !ensure_namespace(ns))
        return -1;
    node n;
    n.name = final_name;
    n.type = type;
    n.parent = parent;
    if (is_time_curve(type))
        n.curve = std::make_unique<anim_curve>();
    nodes_.push_back(std::move(n));
    const int id = int(nodes_.size()) - 1;
    index_name(id);
    if (parent >= 0)
        nodes_[size_t(parent)].children.append(id);
    else
        roots_.append(id);
    ++namespace_nodes_[ns];
    ++live_;
    return id;
}

QVector<int> scene::find(const QString& name_or_path) const {
    QString text = name_or_path;
    const bool absolute = text.startsWith(QLatin1Char('|'));
    QStringList parts = text.split(QLatin1Char('|'), Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return {};
    for (QString& p : parts) {
        if (p.startsWith(QLatin1Char(':')))
            p = p.mid(1);
    }
    QVector<int> out;
    for (int id : by_name_.value(parts.last())) {
        if (!nodes_[size_t(id)].alive)
            continue;
        // Walk up the parents, matching the path from its end.
        int cur = nodes_[size_t(id)].parent;
        bool ok = true;
        for (int i = parts.size() - 2; i >= 0; --i) {
            if (cur < 0 || nodes_[size_t(cur)].name != parts[i]) {
                ok = false;
                break;
            }
            cur = nodes_[size_t(cur)].parent;
        }
        if (ok && (!absolute || cur < 0))
            out.append(id);
    }
    return out;
}

QVector<int> scene::match(const QString& pattern) const {
    QString p = pattern.startsWith(QLatin1Char(':')) ? pattern.mid(1) : pattern;
    const bool literal = !p.contains(QLatin1Char('*')) && !p.contains(QLatin1Char('?'));
    if (literal || p.contains(QLatin1Char('|')))
        return literal ? find(p) : QVector<int>();
    const bool has_colon = p.contains(QLatin1Char(':'));
    QVector<int> out;
    for (int id = 0; id < int(nodes_.size()); ++id) {
        const node& n = nodes_[size_t(id)];
        // Without a ':' a pattern looks in the root namespace only.
        if (n.alive && (has_colon || !n.name.contains(QLatin1Char(':'))) &&
            wildcard_match(p, n.name))
            out.append(id);
    }
    return out;
}

void scene::remove_node(int id) {
    ++generation_;
    if (id < 0 || id >= int(nodes_.size()) || !nodes_[size_t(id)].alive)
        return;
    const QVector<int> children = nodes_[size_t(id)].children;
    for (int child : children)
        remove_node(child);
    detach_animation(id);
    node& n = nodes_[size_t(id)];
    unindex_name(id);
    if (n.parent >= 0)
        nodes_[size_t(n.parent)].children.removeAll(id);
    else
        roots_.removeAll(id);
    --namespace_nodes_[namespace_of(n.name)];
    n.alive = false;
    n.children.clear();
    n.attributes.reset();
    n.curve.reset();
    --live_;
}

void scene::detach_animation(int id) {
    node& n = nodes_[size_t(id)];
    if (n.curve && n.curve->target >= 0) {
        // A curve that goes leaves its plug with the value it gave.
        node& target = nodes_[size_t(n.curve->target)];
        if (target.attributes)
            target.attributes->curves.remove(n.curve->target_attribute);
        n.curve->target = -1;
        ++attribute_generation_;
    }
    if (!n.attributes || n.attributes->curves.isEmpty())
        return;
    // As in Maya, a node's animation curves go with it.
    const QList<int> curves = n.attributes->curves.values();
    n.attributes->curves.clear();
    for (int curve : curves) {
        if (curve < int(nodes_.size()) && nodes_[size_t(curve)].alive &&
            nodes_[size_t(curve)].curve) {
            nodes_[size_t(curve)].curve->target = -1;
            remove_node(curve);
        }
    }
    ++attribute_generation_;
}

bool scene::rename_node(int id, const QString& new_name) {
    ++generation_;
    if (id < 0 || id >= int(nodes_.size()) || !nodes_[size_t(id)].alive)
        return false;
    if (!valid_node_name(new_name) || sibling_clash(new_name, nodes_[size_t(id)].parent))
        return false;
    if (!ensure_namespace(namespace_of(new_name)))
        return false;
    unindex_name(id);
    --namespace_nodes_[namespace_of(nodes_[size_t(id)].name)];
    nodes_[size_t(id)].name = new_name;
    ++namespace_nodes_[namespace_of(new_name)];
    index_name(id);
    return true;
}

bool scene::reparent(int id, int new_parent) {
    for (int up = new_parent; up >= 0; up = nodes_[size_t(up)].parent) {
        if (up == id)
            return false;
    }
    ++generation_;
    node& n = nodes_[size_t(id)];
    if (n.parent >= 0)
        nodes_[size_t(n.parent)].children.removeAll(id);
    else
        roots_.removeAll(id);
    n.parent = new_parent;
    if (new_parent >= 0)
        nodes_[size_t(new_parent)].children.append(id);
    else
        roots_.append(id);
    // A sibling of that name takes precedence: the moved node is renamed, as in Maya.
    int same = 0;
    for (int other : by_name_.value(n.name))
        same += other != id && nodes_[size_t(other)].alive &&
                nodes_[size_t(other)].parent == new_parent;
    if (same > 0) {
        const QString renamed = unique_name(n.name);
        unindex_name(id);
        n.name = renamed;
        index_name(id);
    }
    return true;
}

QVector<int> scene::live_nodes() const {
    QVector<int> out;
    out.reserve(live_);
    for (int id = 0; id < int(nodes_.size()); ++id) {
        if (nodes_[size_t(id)].alive)
            out.append(id);
    }
    return out;
}

QString scene::full_path(int id) const {
    QString path;
    for (int cur = id; cur >= 0; cur = nodes_[size_t(cur)].parent)
        path.prepend(QLatin1Char('|') + nodes_[size_t(cur)].name);
    return path;
}

QString scene::display_name(int id) const {
    // The index holds live nodes only.
    const QString& name = nodes_[size_t(id)].name;
    return by_name_.value(name).size() > 1 ? full_path(id) : name;
}

// ---------------------------------------------------------------- fileInfo

void scene::set_file_info(const QString& key, const QString& value) {
    const auto it = file_info_index_.constFind(key);
    if (it != file_info_index_.constEnd()) {
        file_info_[*it].second = value;
        return;
    }
    file_info_index_.insert(key, file_info_.size());
    file_info_.append({key, value});
}

QString scene::file_info(const QString& key) const {
    const auto it = file_info_index_.constFind(key);
    return it == file_info_index_.constEnd() ? QString() : file_info_[*it].second;
}

void scene::remove_file_info(const QString& key) {
    const auto it = file_info_index_.constFind(key);
    if (it == file_info_index_.constEnd())
        return;
    file_info_.remove(*it);
    file_info_index_.clear();
    for (int i = 0; i < file_info_.size(); ++i)
        file_info_index_.insert(file_info_[i].first, i);
}

} // namespace host
