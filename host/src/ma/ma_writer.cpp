// Writes the scene as Maya writes a .ma file: header, requires, units, fileInfo, nodes
// with parents first and their attributes, the namespaces that no node implies, the
// time, the curves' connections, and the end line.
#include "ma_attribute_writer.h"
#include "ma_file.h"
#include "ma_text.h"

#include "core/scene.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <QSaveFile>
#include <QSet>
#include <QSysInfo>

#include <algorithm>

namespace host {
namespace ma {

namespace {

const char* const host_version = "2019";

// fileInfo entries Maya rewrites on every save, with this host's values.
QVector<QPair<QString, QString>> host_file_infos() {
    return {{QStringLiteral("application"), QStringLiteral("maya")},
            {QStringLiteral("product"), QStringLiteral("Maya %1").arg(host_version)},
            {QStringLiteral("version"), QString::fromLatin1(host_version)},
            {QStringLiteral("cutIdentifier"), QStringLiteral("201812112215-434d8d9c04")},
            {QStringLiteral("osv"), QSysInfo::prettyProductName()}};
}

QString quoted(const QString& text) {
    return QLatin1Char('"') + escape(text) + QLatin1Char('"');
}

bool is_plain_word(const QString& text) {
    if (text.isEmpty() || text[0].isDigit())
        return false;
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == QLatin1Char('_'));
    });
}

// A header comment runs to the end of its line.
QString one_line(QString text) {
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return text;
}

// Live nodes with every parent before its children, siblings in creation order.
QVector<int> parents_first(const scene& from) {
    QVector<int> order;
    order.reserve(from.node_count());
    QVector<int> stack;
    for (int root : from.live_nodes()) {
        if (from.at(root).parent >= 0)
            continue;
        stack.append(root);
        while (!stack.isEmpty()) {
            const int id = stack.takeLast();
            order.append(id);
            const QVector<int>& children = from.at(id).children;
            for (auto it = children.crbegin(); it != children.crend(); ++it)
                stack.append(*it);
        }
    }
    return order;
}

void write_nodes(const scene& from, const QVector<int>& order, const node_namer& name_of,
                 QString& out) {
    for (int id : order) {
        const node& n = from.at(id);
        out += QLatin1String("createNode ");
        out += is_plain_word(n.type) ? n.type : quoted(n.type);
        out += QLatin1String(" -n ") + quoted(n.name);
        if (n.parent >= 0)
            out += QLatin1String(" -p ") + quoted(name_of(n.parent));
        out += QLatin1String(";\n");
        write_node_attributes(from, id, out);
    }
}

// Namespaces holding no node, directly or below, are not implied by any createNode.
void write_empty_namespaces(const scene& from, QString& out) {
    QSet<QString> used;
    for (int id : from.live_nodes()) {
        for (QString ns = namespace_of(from.at(id).name); !ns.isEmpty() && !used.contains(ns);
             ns = namespace_of(ns))
            used.insert(ns);
    }
    QStringList empty;
    for (const QString& ns : from.all_namespaces()) {
        if (!used.contains(ns) && ns != QLatin1String("UI") && ns != QLatin1String("shared"))
            empty.append(ns);
    }
    std::stable_sort(empty.begin(), empty.end(), [](const QString& a, const QString& b) {
        return a.count(QLatin1Char(':')) < b.count(QLatin1Char(':'));
    });
    for (const QString& ns : empty) {
        const QString parent = namespace_of(ns);
        out +=
            QLatin1String("namespace -add ") + quoted(ns.mid(ns.lastIndexOf(QLatin1Char(':')) + 1));
        if (!parent.isEmpty())
            out += QLatin1String(" -p ") + quoted(QLatin1Char(':') + parent);
        out += QLatin1String(";\n");
    }
}

} // namespace

QByteArray write(const scene& from, const QString& file_name) {
    const QString name = one_line(QFileInfo(file_name).fileName());
    QString out;
    out += QStringLiteral("//Maya ASCII %1 scene\n").arg(host_version);
    out += QStringLiteral("//Name: %1\n").arg(name);
    out += QStringLiteral("//Last modified: %1\n")
               .arg(QLocale::c().toString(QDateTime::currentDateTime(),
                                          QStringLiteral("ddd, MMM dd, yyyy hh:mm:ss AP")));
    out += QStringLiteral("//Codeset: UTF-8\n");
    out += QStringLiteral("requires maya \"%1\";\n").arg(host_version);
    out += QStringLiteral("currentUnit -l centimeter -a degree -t film;\n");
    QSet<QString> written;
    for (const auto& info : host_file_infos()) {
        out += QLatin1String("fileInfo ") + quoted(info.first) + QLatin1Char(' ') +
               quoted(info.second) + QLatin1String(";\n");
        written.insert(info.first);
    }
    for (const auto& info : from.file_infos()) {
        if (written.contains(info.first))
            continue;
        out += QLatin1String("fileInfo ") + quoted(info.first) + QLatin1Char(' ') +
               quoted(info.second) + QLatin1String(";\n");
    }
    const QVector<int> order = parents_first(from);
    QHash<QString, int> name_counts;
    for (int id : order)
        ++name_counts[from.at(id).name];
    const node_namer name_of = [&](int id) {
        return name_counts.value(from.at(id).name) > 1 ? from.full_path(id) : from.at(id).name;
    };
    write_nodes(from, order, name_of, out);
    write_time_settings_node(from, out);
    write_empty_namespaces(from, out);
    write_current_time(from, out);
    write_curve_connections(from, name_of, out);
    out += QStringLiteral("// End of %1\n").arg(name);
    return out.toUtf8();
}

bool write_file(const QString& path, const scene& from, QString* error) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        const QByteArray text = write(from, path);
        if (file.write(text) == text.size() && file.commit())
            return true;
    }
    if (error)
        *error = QStringLiteral("Cannot write %1: %2").arg(path, file.errorString());
    return false;
}

} // namespace ma
} // namespace host
