#pragma once
// The headless runner: each -c or --python text and each script file is one execution of
// the script editor, after which the idle queue is drained.
#include "core/output.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace host {
class session;
}

namespace sandbox {

// One text or script file to run, in MEL or Python.
struct script_step {
    host::language language = host::language::mel;
    QString text; // the code, or the file's path
    bool file = false;
};

struct batch_options {
    QString scene;              // a .ma to open first
    QVector<script_step> steps; // "-c", "--python" and "--script", in order
    QStringList plugins;        // plug-in libraries to load first
};

// A script file's language follows its extension: ".py" is Python, the rest MEL.
script_step script_file_step(const QString& path);
// The code of a step, reading its file; false with an error printed when it cannot.
bool step_code(host::session& host, const script_step& step, QString* code);

// Returns the process exit code: 1 if any error was printed, else 0.
int run_batch(const batch_options& options);

} // namespace sandbox
