#pragma once
// The command line: Enter runs the text in its language, MEL or Python; Up and Down walk
// the history.
#include "core/output.h"

#include <QLineEdit>
#include <QStringList>

namespace sandbox {

class command_line : public QLineEdit {
    Q_OBJECT
public:
    explicit command_line(QWidget* parent = nullptr);
    const QStringList& history() const { return history_; }
    host::language language() const { return language_; }
    void set_language(host::language language);

signals:
    void submitted(const QString& code);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void submit();
    void recall(int step);
    QStringList history_;
    int cursor_ = 0; // == history_.size() while editing a new line
    QString draft_;
    host::language language_ = host::language::mel;
};

} // namespace sandbox
