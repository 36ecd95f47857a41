// File references: `file -rdi` lines say which references stay unloaded, `file -r` lines
// name the files; a found .ma file is read under the reference's namespace.
#include "ma_reader.h"

#include "core/scene.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <limits>

namespace host {
namespace ma {

namespace {

constexpr int max_reference_depth = 16;
constexpr qint64 max_referenced_bytes = qint64(1) << 30;

const char* const file_values[] = {"rdi",  "referenceDepthInfo",
                                   "ns",   "namespace",
                                   "rfn",  "referenceNode",
                                   "op",   "options",
                                   "typ",  "type",
                                   "dr",   "deferReference",
                                   "rpr",  "renamingPrefix",
                                   "shd",  "sharedNodes",
                                   "mnc",  "mergeNamespacesOnClash",
                                   nullptr};

QString expand_environment(const QString& path) {
    QString out;
    for (int i = 0; i < path.size(); ++i) {
        if (path[i] != QLatin1Char('$')) {
            out += path[i];
            continue;
        }
        const bool braced = i + 1 < path.size() && path[i + 1] == QLatin1Char('{');
        int j = i + (braced ? 2 : 1);
        const int start = j;
        while (j < path.size() && (path[j].isLetterOrNumber() || path[j] == QLatin1Char('_')))
            ++j;
        const QString name = path.mid(start, j - start);
        const bool closed = !braced || (j < path.size() && path[j] == QLatin1Char('}'));
        if (name.isEmpty() || !closed || !qEnvironmentVariableIsSet(name.toLocal8Bit())) {
            out += path[i];
            continue;
        }
        out += qEnvironmentVariable(name.toLocal8Bit().constData());
        i = braced ? j : j - 1;
    }
    return out;
}

} // namespace

QString resolve_reference(const QString& path, const QString& from_dir) {
    const QString expanded = QDir::fromNativeSeparators(expand_environment(path));
    if (expanded.isEmpty())
        return QString();
    QStringList candidates;
    if (QFileInfo(expanded).isAbsolute() || from_dir.isEmpty())
        candidates << expanded;
    else
        candidates << QDir(from_dir).filePath(expanded);
    if (!from_dir.isEmpty())
        candidates << QDir(from_dir).filePath(QFileInfo(expanded).fileName());
    for (const QString& c : candidates) {
        if (QFileInfo(c).isFile())
            return QFileInfo(c).absoluteFilePath();
    }
    return QString();
}

bool load_bytes(const QString& path, QByteArray& out, QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("Cannot open %1: %2").arg(path, file.errorString());
        return false;
    }
    if (file.size() >= qint64(std::numeric_limits<int>::max())) {
        if (error)
            *error = QStringLiteral("%1 is too large to read.").arg(path);
        return false;
    }
    out = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        if (error)
            *error = QStringLiteral("Cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

void file_reader::on_file() {
    const command_args a = split_args(args_, file_values, true);
    const bool depth_info = a.has("rdi", "referenceDepthInfo");
    if (!depth_info && !a.has("r", "reference"))
        return; // nothing but references is read from a scene: no import, no new
    if (a.positional.empty() || a.positional.back()->bytes.isEmpty()) {
        warn(QStringLiteral("file reference without a path"));
        return;
    }
    const QString path = decode(a.positional.back());
    const QString rfn = decode(a.value("rfn", "referenceNode"));
    const QString node = rfn.isEmpty() ? QString() : qualify_namespace(rfn, prefix_);
    if (depth_info) {
        const bool deferred = a.value("dr", "deferReference") &&
                              a.value("dr", "deferReference")->bytes.trimmed() == "1";
        if (!node.isEmpty() && !session_.deferred.contains(node))
            session_.deferred.insert(node, deferred);
        return;
    }
    const arg* ns = a.value("ns", "namespace");
    if (!ns && a.value("rpr", "renamingPrefix")) {
        warn(QStringLiteral("reference %1 uses a renaming prefix; it is left unloaded").arg(path));
        return;
    }
    // Without -ns, Maya names the namespace after the file.
    const QString name_space = qualify_namespace(
        ns ? decode(ns) : QFileInfo(QDir::fromNativeSeparators(path)).completeBaseName(), prefix_);
    const QString type = decode(a.value("typ", "type"));
    load_reference(path, name_space, node, type);
}

void file_reader::load_reference(const QString& path, const QString& name_space,
                                 const QString& node, const QString& type) {
    QVector<reference_record>& records = session_.report.references;
    const int index = records.size();
    records.append(reference_record{path, QString(), name_space, node, depth_ + 1, false});
    if (session_.deferred.value(node, false))
        return; // the scene keeps it unloaded
    const QString from_dir =
        file_path_.isEmpty() ? QString() : QFileInfo(file_path_).absolutePath();
    const QString resolved = resolve_reference(path, from_dir);
    records[index].resolved = resolved;
    const QString label = QStringLiteral("reference %1 in namespace %2")
                              .arg(node.isEmpty() ? QStringLiteral("(unnamed)") : node,
                                   name_space.isEmpty() ? QStringLiteral(":") : name_space);
    if (resolved.isEmpty()) {
        warn(QStringLiteral("Could not find file: %1 for %2; the reference is left unloaded")
                 .arg(path, label));
        return;
    }
    if (session_.load_references && loadable(resolved, type, name_space, label))
        records[index].loaded = read_referenced(resolved, name_space, label);
}

bool file_reader::loadable(const QString& resolved, const QString& type, const QString& name_space,
                           const QString& label) {
    const QString suffix = QFileInfo(resolved).suffix().toLower();
    QString refusal;
    if (type.isEmpty() ? suffix != QLatin1String("ma") : type != QLatin1String("mayaAscii"))
        refusal = QStringLiteral("%1 is a %2 file, not Maya ASCII")
                      .arg(resolved, type.isEmpty() ? QStringLiteral(".") + suffix : type);
    else if (session_.open_files.contains(QFileInfo(resolved).canonicalFilePath()))
        refusal = QStringLiteral("%1 references itself").arg(resolved);
    else if (depth_ + 1 > max_reference_depth)
        refusal = QStringLiteral("references nest deeper than %1").arg(max_reference_depth);
    else if (!name_space.isEmpty() && !scene::valid_node_name(name_space + QStringLiteral(":n")))
        refusal = QStringLiteral("the namespace is invalid");
    if (!refusal.isEmpty())
        warn(QStringLiteral("%1; %2 is left unloaded").arg(refusal, label));
    return refusal.isEmpty();
}

bool file_reader::read_referenced(const QString& resolved, const QString& name_space,
                                  const QString& label) {
    QByteArray bytes;
    QString error;
    if (!load_bytes(resolved, bytes, &error)) {
        warn(error);
        return false;
    }
    session_.referenced_bytes += bytes.size();
    if (session_.referenced_bytes > max_referenced_bytes) {
        warn(QStringLiteral("references exceed %1 bytes; %2 is left unloaded")
                 .arg(max_referenced_bytes)
                 .arg(label));
        return false;
    }
    session_.open_files.append(QFileInfo(resolved).canonicalFilePath());
    file_reader child(session_, bytes, resolved, name_space, depth_ + 1);
    const bool loaded = child.run(&error);
    session_.open_files.removeLast();
    if (loaded)
        session_.target.ensure_namespace(name_space); // even when the file holds no node
    else
        warn(error);
    return loaded;
}

} // namespace ma
} // namespace host
