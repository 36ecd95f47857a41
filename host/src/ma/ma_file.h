#pragma once
// Maya ASCII scenes: reading into and writing from the host's scene.
#include <QByteArray>
#include <QString>
#include <QStringList>

namespace host {

class scene;

namespace ma {

// Loads the statements the host knows (createNode, namespaces, fileInfo, file references)
// into `into`, which the caller has cleared; others are skipped. Warnings (a missing
// referenced file, say) go to `warnings`. False with `error` only when the text cannot
// be read at all.
bool read(const QByteArray& text, scene& into, QStringList* warnings, QString* error);
bool read_file(const QString& path, scene& into, QStringList* warnings, QString* error);

// The scene as a Maya ASCII text Maya itself accepts.
QByteArray write(const scene& from, const QString& file_name);
bool write_file(const QString& path, const scene& from, QString* error);

} // namespace ma
} // namespace host
