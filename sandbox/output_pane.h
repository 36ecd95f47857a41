#pragma once
// The script editor's history: every line the host prints, errors and warnings coloured.
#include "core/output.h"

#include <QPlainTextEdit>

namespace sandbox {

class output_pane : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit output_pane(QWidget* parent = nullptr);
    void append_line(host::line_kind kind, const QString& line);
};

} // namespace sandbox
