#pragma once
// The picker's settings. Qt keeps settings keys in a process-wide cache that outlives the
// plug-in, so every text handed to QSettings is copied to the heap: a QStringLiteral would
// point into the library after Maya has unloaded it.
#include <QSettings>
#include <QString>

inline QString settings_key(const char* key) {
    return QString::fromLatin1(key);
}

class picker_settings : public QSettings {
public:
    picker_settings() : QSettings(settings_key("Zelvani"), settings_key("picker")) {}
};
