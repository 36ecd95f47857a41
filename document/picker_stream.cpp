#include "document/picker_stream.h"

#include "document/button_geometry.h"
#include <QIODevice>

bool stream_exhausted(const QDataStream& in) {
    return in.status() != QDataStream::Ok || !in.device() || in.device()->atEnd();
}

namespace {

// One version-5 record; `i` is its place, which the reader checks.
void write_button_record(QDataStream& out, int i, const picker_button_data& b) {
    out << qint32(i) << b.position << qint32(b.size) << qint32(b.width) << qint32(b.height)
        << qint32(b.kind) << qint32(b.language) << qint32(b.color) << qint32(b.label_color)
        << b.label << qint32(b.targets.size());
    for (const QString& target : b.targets)
        out << target;
}

} // namespace

void write_button_block(QDataStream& out, const QList<picker_button*>& buttons) {
    const int count = buttons.size();
    out << qint32(count);
    for (int i = 0; i < count; ++i)
        write_button_record(out, i, *buttons[i]);
}

void write_button_block(QDataStream& out, const QList<picker_button_data>& records) {
    const int count = records.size();
    out << qint32(count);
    for (int i = 0; i < count; ++i)
        write_button_record(out, i, records[i]);
}

namespace {

qint32 read_int(QDataStream& in) {
    qint32 v = 0;
    in >> v;
    return v;
}

} // namespace

QList<picker_button_data> read_button_block(QDataStream& in, int version) {
    QList<picker_button_data> records;
    const qint32 count = read_int(in);
    picker_button_data record;
    for (qint32 i = 0; i < count && !stream_exhausted(in); ++i) {
        const qint32 index = read_int(in);
        in >> record.position;
        record.position = held_position(record.position);
        record.size = held_size(read_int(in));
        record.width = version >= 5 ? held_size(read_int(in)) : record.size;
        record.height = version >= 5 ? held_size(read_int(in)) : record.size;
        record.kind = version >= 2 ? read_int(in) : 0;
        record.language = version >= 2 ? read_int(in) : 0;
        record.color = QRgb(read_int(in));
        record.label_color = version >= 4 ? QRgb(read_int(in)) : 0xffffff;
        in >> record.label;
        const bool valid = index == i && quint32(record.kind) <= 1 && quint32(record.language) <= 1;

        // The targets are read whatever the record's fate, so the next one starts right.
        record.targets.clear();
        const qint32 target_count = read_int(in);
        for (qint32 t = 0; t < target_count && !stream_exhausted(in); ++t) {
            QString target;
            in >> target;
            record.targets.append(target);
        }
        // A record whose data ends before its last target is damaged: kept, it would come
        // out short of targets, or with none, and be lost at the next save and read.
        const bool whole = record.targets.size() == target_count && in.status() == QDataStream::Ok;
        if (target_count >= 1 && valid && whole)
            records.append(record);
    }
    return records;
}
