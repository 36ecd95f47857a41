#include <maya/MQtUtil.h>

#include "core/session.h"

#include <QApplication>
#include <QMainWindow>
#include <QPointer>

QWidget* MQtUtil::mainWindow() {
    host::session& s = host::session::get();
    if (!s.main_window_widget() && qobject_cast<QApplication*>(QCoreApplication::instance())) {
        // Without the sandbox's window (batch runs, tests) the host keeps a hidden one.
        static QPointer<QMainWindow> hidden;
        if (!hidden)
            hidden = new QMainWindow;
        return hidden;
    }
    return s.main_window_widget();
}

QString MQtUtil::toQString(const MString& mayaString) {
    return QString::fromUtf8(mayaString.asChar());
}

MString MQtUtil::toMString(const QString& qtString) {
    return MString(qtString.toUtf8().constData());
}
