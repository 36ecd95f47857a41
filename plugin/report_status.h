#pragma once
#include <maya/MStatus.h>

#include <QString>

// Shows a failed host status as "ZelvaniPicker - <text>: <host's words> "; a success
// passes silently. The status comes back unchanged.
MStatus report_status(const MStatus& status, const QString& text);
