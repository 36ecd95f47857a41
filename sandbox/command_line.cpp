#include "command_line.h"

#include <QKeyEvent>

namespace sandbox {

command_line::command_line(QWidget* parent) : QLineEdit(parent) {
    setPlaceholderText(tr("MEL"));
    connect(this, &QLineEdit::returnPressed, this, &command_line::submit);
}

void command_line::set_language(host::language language) {
    language_ = language;
    setPlaceholderText(language == host::language::python ? tr("Python") : tr("MEL"));
}

void command_line::submit() {
    const QString code = text().trimmed();
    if (code.isEmpty())
        return;
    if (history_.isEmpty() || history_.last() != code)
        history_.append(code);
    cursor_ = history_.size();
    draft_.clear();
    clear();
    emit submitted(code);
}

void command_line::recall(int step) {
    const int next = qBound(0, cursor_ + step, int(history_.size()));
    if (next == cursor_)
        return;
    if (cursor_ == history_.size())
        draft_ = text();
    cursor_ = next;
    setText(cursor_ == history_.size() ? draft_ : history_[cursor_]);
}

void command_line::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up)
        recall(-1);
    else if (event->key() == Qt::Key_Down)
        recall(+1);
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace sandbox
