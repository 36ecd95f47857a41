#include "document/picker_clipboard.h"

#include "document/picker_stream.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QIODevice>
#include <QMimeData>

void write_clipboard(const QList<picker_button_data>& records) {
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    out << qint32(picker_clipboard_version);
    write_button_block(out, records);

    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear(QClipboard::Clipboard);
    auto* mime = new QMimeData;
    mime->setData(QString::fromLatin1(picker_clipboard_mime_type), payload);
    clipboard->setMimeData(mime, QClipboard::Clipboard); // the clipboard owns it now
}

QList<picker_button_data> read_clipboard_stream(QDataStream& in) {
    qint32 version = 0;
    in >> version;
    if (version != picker_clipboard_version)
        return {};
    // Whatever the payload's version, its records carry every field of version 5.
    return read_button_block(in, picker_format_version);
}
