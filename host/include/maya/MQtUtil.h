#ifndef MAYA_MQTUTIL_H
#define MAYA_MQTUTIL_H
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <QtCore/QString>

class QWidget;

class OPENMAYAUI_EXPORT MQtUtil {
public:
    static QWidget* mainWindow();
    static QString toQString(const MString& mayaString);
    static MString toMString(const QString& qtString);
};

#endif
