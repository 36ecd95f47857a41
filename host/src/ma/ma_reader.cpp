#include "ma_reader.h"

#include "core/scene.h"

#include <QFileInfo>

namespace host {
namespace ma {

namespace {

constexpr int max_warnings = 200;

const char* const create_node_values[] = {"n", "name", "p", "parent", nullptr};
const char* const namespace_values[] = {"add", "addNamespace", "p",    "parent",
                                        "set", "setNamespace", nullptr};
const char* const file_info_values[] = {"rm", "remove", nullptr};
const char* const requires_values[] = {"nodeType", "dataType", nullptr};

QString join(const QString& name_space, const QString& name) {
    return name_space.isEmpty() ? name : name_space + QLatin1Char(':') + name;
}

// A namespace below another; an empty name is the base itself.
QString join_namespace(const QString& base, const QString& name) {
    return name.isEmpty() ? base : join(base, name);
}

QString strip_colon(const QString& name) {
    return name.startsWith(QLatin1Char(':')) ? name.mid(1) : name;
}

bool is_binary_scene(const QByteArray& text) {
    return text.startsWith("FOR4") || text.startsWith("FOR8") || text.startsWith("FORM");
}

} // namespace

void read_session::warn(const QString& text) {
    if (report.warnings.size() < max_warnings)
        report.warnings.append(text);
    else
        ++dropped_warnings;
}

file_reader::file_reader(read_session& session, const QByteArray& text, const QString& file_path,
                         const QString& prefix, int depth)
    : session_(session), text_(text), file_path_(file_path), prefix_(prefix), current_(prefix),
      depth_(depth), lexer_(text.constData(), text.constData() + text.size()),
      counted_to_(text.constData()) {}

bool file_reader::run(QString* error) {
    const QString name =
        file_path_.isEmpty() ? QStringLiteral("The text") : QFileInfo(file_path_).fileName();
    if (is_binary_scene(text_)) {
        if (error)
            *error = QStringLiteral("%1 is a Maya Binary scene, not Maya ASCII.").arg(name);
        return false;
    }
    statement s;
    while (lexer_.next(s)) {
        where_ = s.begin;
        if (s.comment)
            on_comment(s);
        else if (s.terminated)
            on_statement(s);
        else if (s.command_end > s.begin)
            warn(QStringLiteral("the text ends inside a statement; it is left out"));
    }
    if (!seen_header_ && known_statements_ == 0) {
        if (error)
            *error = QStringLiteral("%1 is not a Maya ASCII scene.").arg(name);
        return false;
    }
    if (lexer_.unterminated_strings() > 0)
        warn(QStringLiteral("%1 string(s) end at a line break without a closing quote")
                 .arg(lexer_.unterminated_strings()));
    if (!seen_end_) {
        where_ = nullptr;
        warn(QStringLiteral("no \"// End of\" line: the file may be truncated"));
    }
    return true;
}

void file_reader::on_comment(const statement& s) {
    const QByteArray line = QByteArray::fromRawData(s.begin, int(s.end - s.begin));
    if (line.startsWith("Maya ASCII ")) {
        seen_header_ = true;
        QByteArray version = line.mid(11).trimmed();
        if (version.endsWith(" scene"))
            version.chop(6);
        if (depth_ == 0)
            session_.report.maya_version = QString::fromLatin1(version.trimmed());
    } else if (line.startsWith("Codeset:")) {
        const QByteArray name = line.mid(8).trimmed();
        codec_ = text_codec(name);
        lexer_.set_grouping(codec_.grouping());
        if (depth_ == 0)
            session_.report.codeset = QString::fromLatin1(name);
        if (!codec_.known())
            warn(QStringLiteral("unknown codeset %1; strings are read as Latin-1")
                     .arg(QString::fromLatin1(name)));
    } else if (line.startsWith(" End of")) {
        seen_end_ = true;
    }
}

void file_reader::on_statement(const statement& s) {
    const size_t size = size_t(s.command_end - s.begin);
    if (size < 4 || size > 12)
        return;
    auto is = [&](const char* word) { return s.command_is(word, std::strlen(word)); };
    void (file_reader::*handler)() = nullptr;
    if (is("createNode"))
        handler = &file_reader::on_create_node;
    else if (is("fileInfo"))
        handler = &file_reader::on_file_info;
    else if (is("file"))
        handler = &file_reader::on_file;
    else if (is("namespace"))
        handler = &file_reader::on_namespace;
    else if (is("requires"))
        handler = &file_reader::on_requires;
    else if (is("setAttr"))
        handler = takes_set_attr(s) ? &file_reader::on_set_attr : nullptr;
    else if (is("addAttr"))
        handler = current_node_ >= 0 ? &file_reader::on_add_attr : nullptr;
    else if (is("connectAttr"))
        handler = &file_reader::on_connect_attr;
    else if (is("select"))
        handler = &file_reader::on_select;
    else if (!is("currentUnit") && !is("rename") && !is("relationship") && !is("lockNode"))
        return; // anything else is no evidence that this is a scene
    ++known_statements_;
    if (!handler)
        return;
    tokenize(s.command_end, s.end, lexer_.grouping(), tokens_);
    collect_args(tokens_, lexer_.grouping(), args_);
    (this->*handler)();
}

// ---------------------------------------------------------------- statements

void file_reader::on_create_node() {
    current_node_ = -1;
    current_is_time_ = false;
    const command_args a = split_args(args_, create_node_values, false);
    if (a.positional.empty()) {
        warn(QStringLiteral("createNode without a node type"));
        return;
    }
    const QString type = node_type(a.positional.front());
    const arg* name_arg = a.value("n", "name");
    const QString name = name_arg ? qualify_new(decode(name_arg)) : QString();
    int parent = -1;
    if (const arg* parent_arg = a.value("p", "parent")) {
        parent = find_parent(decode(parent_arg), name.isEmpty() ? type : name);
        if (parent < 0)
            return;
    }
    const bool shared = a.has("s", "shared");
    if (shared && depth_ > 0) {
        // A referenced file's default nodes are the scene's own.
        skipped_.insert(name);
        return;
    }
    current_node_ = create_node(type, name, parent, shared);
}

int file_reader::find_parent(const QString& written, const QString& child) {
    const QString lookup = qualify_lookup(written);
    const QVector<int> found = session_.target.find(lookup);
    if (found.size() == 1)
        return found.front();
    if (skipped_.contains(lookup.mid(lookup.lastIndexOf(QLatin1Char('|')) + 1)))
        skipped_.insert(child); // under a skipped default node: skipped silently
    else
        warn(QStringLiteral("createNode %1: %2 parent %3; the node is left out")
                 .arg(child,
                      found.isEmpty() ? QStringLiteral("no") : QStringLiteral("more than one"),
                      lookup));
    return -1;
}

int file_reader::create_node(const QString& type, const QString& name, int parent, bool shared) {
    scene& target = session_.target;
    if (name.isEmpty()) {
        const int id =
            target.create_node(type, join(current_, type + QLatin1Char('1')), parent, true);
        if (id < 0)
            warn(QStringLiteral("createNode %1: cannot name a node of this type").arg(type));
        return id;
    }
    const int made = target.create_node(type, name, parent, false);
    if (made >= 0)
        return made;
    if (!scene::valid_node_name(name)) {
        warn(
            QStringLiteral("createNode: invalid node name \"%1\"; the node is left out").arg(name));
        return -1;
    }
    if (shared)
        return -1; // a shared node that exists already is kept as it is
    const int id = target.create_node(type, name, parent, true);
    if (id >= 0)
        warn(QStringLiteral("createNode: %1 exists already; the new node is named %2")
                 .arg(name, target.at(id).name));
    return id;
}

void file_reader::on_file_info() {
    if (depth_ > 0)
        return; // the scene's fileInfo is its own
    const command_args a = split_args(args_, file_info_values, false);
    if (const arg* key = a.value("rm", "remove")) {
        session_.target.remove_file_info(decode(key));
        return;
    }
    if (a.positional.size() < 2) {
        warn(QStringLiteral("fileInfo needs a key and a value"));
        return;
    }
    session_.target.set_file_info(decode(a.positional[0]), decode(a.positional[1]));
}

void file_reader::on_namespace() {
    const command_args a = split_args(args_, namespace_values, false);
    scene& target = session_.target;
    if (const arg* add = a.value("add", "addNamespace")) {
        const arg* parent = a.value("p", "parent");
        const QString base = parent ? qualify_namespace(decode(parent), current_) : current_;
        const QString full = qualify_namespace(decode(add), base);
        if (!target.ensure_namespace(full))
            warn(QStringLiteral("namespace: invalid name \"%1\"").arg(full));
    }
    if (const arg* set = a.value("set", "setNamespace")) {
        const QString full = qualify_namespace(decode(set), current_);
        if (target.namespace_exists(full))
            current_ = full;
        else
            warn(QStringLiteral("namespace -set: no namespace \"%1\"").arg(full));
    }
}

void file_reader::on_requires() {
    const command_args a = split_args(args_, requires_values, false);
    if (a.positional.empty())
        return;
    const QString plugin = decode(a.positional.front());
    if (plugin != QLatin1String("maya") && !session_.plugins_named.contains(plugin)) {
        session_.plugins_named.insert(plugin);
        session_.report.plugins.append(plugin);
    }
}

// ---------------------------------------------------------------- names

QString file_reader::decode(const arg* a) const {
    return a ? codec_.decode(a->bytes) : QString();
}

QString file_reader::node_type(const arg* a) {
    const auto it = types_.constFind(a->bytes);
    if (it != types_.constEnd())
        return *it;
    const QString type = decode(a);
    types_.insert(QByteArray(a->bytes.constData(), a->bytes.size()), type);
    return type;
}

QString file_reader::qualify_new(const QString& name) const {
    // Names are relative to the current namespace; a leading ':' starts at the file's root.
    if (name.startsWith(QLatin1Char(':')))
        return join(prefix_, name.mid(1));
    return join(current_, name);
}

QString file_reader::qualify_lookup(const QString& path) const {
    if (prefix_.isEmpty())
        return path;
    QStringList parts = path.split(QLatin1Char('|'));
    for (QString& part : parts) {
        if (!part.isEmpty())
            part = join(prefix_, strip_colon(part));
    }
    return parts.join(QLatin1Char('|'));
}

QString file_reader::qualify_namespace(const QString& name, const QString& base) const {
    if (name.startsWith(QLatin1Char(':')))
        return join_namespace(prefix_, name.mid(1));
    return join_namespace(base, name);
}

// ---------------------------------------------------------------- warnings

int file_reader::line_of(const char* p) {
    if (p < counted_to_) {
        counted_to_ = text_.constData();
        counted_lines_ = 1;
    }
    for (const char* q = counted_to_; q < p;) {
        const void* hit = std::memchr(q, '\n', size_t(p - q));
        if (!hit)
            break;
        ++counted_lines_;
        q = static_cast<const char*>(hit) + 1;
    }
    counted_to_ = p;
    return counted_lines_;
}

void file_reader::warn(const QString& text) {
    QString where = file_path_.isEmpty() ? QString() : QFileInfo(file_path_).fileName();
    if (where_) {
        where += where.isEmpty() ? QString() : QStringLiteral(" ");
        where += QStringLiteral("line %1").arg(line_of(where_));
    }
    session_.warn(where.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, where));
}

} // namespace ma
} // namespace host
