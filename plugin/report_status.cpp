#include "plugin/report_status.h"

#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

MStatus report_status(const MStatus& status, const QString& text) {
    if (status == MStatus::kSuccess)
        return status;
    const QString line =
        QStringLiteral("%1 - %2: %3 ")
            .arg(QStringLiteral("ZelvaniPicker"), text, MQtUtil::toQString(status.errorString()));
    MGlobal::displayError(MQtUtil::toMString(line));
    return status;
}
