#pragma once
// Maya ASCII scenes: reading into and writing from the host's scene.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace host {

class scene;

namespace ma {

// A `file -r` reference met while reading, at any depth.
struct reference_record {
    QString path;       // as written in the file
    QString resolved;   // the file that was found, empty when none
    QString name_space; // full namespace of its nodes, "" for the root
    QString node;       // the reference node (-rfn), with its namespace
    int depth = 1;      // 1 for the scene's own references
    bool loaded = false;
};

// Everything a read learns besides the scene itself.
struct read_report {
    QStringList warnings;
    QVector<reference_record> references;
    QStringList plugins;  // plug-ins named by `requires`, without "maya"
    QString maya_version; // from the "//Maya ASCII <version> scene" header
    QString codeset;      // from the "//Codeset:" header
};

struct read_options {
    // The file the text came from: relative reference paths start from its folder.
    QString file_path;
    // Loads referenced .ma files that exist, under their namespaces.
    bool load_references = true;
};

// Loads the statements the host knows (createNode, namespaces, fileInfo, file references)
// into `into`, which the caller has cleared; others are skipped. Warnings (a missing
// referenced file, say) go to `warnings`. False with `error` only when the text cannot
// be read at all.
bool read(const QByteArray& text, scene& into, QStringList* warnings, QString* error);
bool read_file(const QString& path, scene& into, QStringList* warnings, QString* error);

// The same, reporting references, plug-ins and header facts as well.
bool read(const QByteArray& text, scene& into, read_report& report, QString* error,
          const read_options& options = {});
bool read_file(const QString& path, scene& into, read_report& report, QString* error,
               read_options options = {});

// The scene as a Maya ASCII text Maya itself accepts.
QByteArray write(const scene& from, const QString& file_name);
bool write_file(const QString& path, const scene& from, QString* error);

} // namespace ma
} // namespace host
