#include "output_pane.h"

#include <QFontDatabase>
#include <QTextCharFormat>

namespace sandbox {

output_pane::output_pane(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setMaximumBlockCount(5000);
}

void output_pane::append_line(host::line_kind kind, const QString& line) {
    QTextCharFormat format;
    switch (kind) {
    case host::line_kind::error:
        format.setForeground(QColor(0xff, 0x70, 0x70));
        break;
    case host::line_kind::warning:
        format.setForeground(QColor(0xf0, 0xc0, 0x50));
        break;
    case host::line_kind::result:
        format.setForeground(QColor(0x90, 0xd0, 0xff));
        break;
    case host::line_kind::text:
        break;
    }
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    QString text = line;
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    if (!document()->isEmpty())
        cursor.insertBlock();
    cursor.insertText(text, format);
    ensureCursorVisible();
}

} // namespace sandbox
