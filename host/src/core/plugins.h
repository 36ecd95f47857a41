#pragma once
// A loaded plug-in library and what it registered.
#include <QLibrary>
#include <QString>
#include <QStringList>
#include <memory>

namespace host {

struct plugin_record {
    QString name; // the file's base name, as loadPlugin reports it
    QString path;
    QString vendor;
    QString version;
    QString required_api;
    QString api_version; // the library's MApiVersion text
    QStringList commands;
    std::unique_ptr<QLibrary> library;
};

} // namespace host
