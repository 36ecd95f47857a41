#include "host_fonts.h"

#include <QFile>
#include <QFontDatabase>

namespace sandbox {

void register_host_fonts() {
    for (const char* path :
         {"/usr/share/wine/fonts/tahoma.ttf", "/usr/share/wine/fonts/tahomabd.ttf"}) {
        const QString file = QString::fromLatin1(path);
        if (QFile::exists(file))
            QFontDatabase::addApplicationFont(file);
    }
}

} // namespace sandbox
