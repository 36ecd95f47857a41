#pragma once
// Picker streams written the way older and current versions of the picker wrote them, so
// that tests make their own files of every version.
#include <QByteArray>
#include <QDataStream>
#include <QFile>
#include <QList>
#include <QPixmap>
#include <QPoint>
#include <QString>
#include <QStringList>

struct test_button {
    QStringList targets;
    QString label;
    QPoint position{0, 0};
    int width = 10, height = 10, kind = 0, language = 0;
    quint32 color = 0xff0000, label_color = 0;
    int stored_index = -1; // -1: the button's place, as the writer puts it
};

struct test_tab {
    QString name;
    QList<test_button> buttons;
    QString background_id;
    QPixmap background;
};

inline void write_test_buttons(QDataStream& out, const QList<test_button>& buttons, int version) {
    out << qint32(buttons.size());
    for (int i = 0; i < buttons.size(); ++i) {
        const test_button& b = buttons[i];
        out << qint32(b.stored_index < 0 ? i : b.stored_index) << b.position << qint32(b.width);
        if (version >= 5)
            out << qint32(b.width) << qint32(b.height);
        if (version >= 2)
            out << qint32(b.kind) << qint32(b.language);
        out << qint32(b.color);
        if (version >= 4)
            out << qint32(b.label_color);
        out << b.label << qint32(b.targets.size());
        for (const QString& t : b.targets)
            out << t;
    }
}

inline void write_test_header(QDataStream& out, const test_tab& tab, int version) {
    if (version >= 2) {
        out << tab.background_id;
        if (!tab.background_id.isEmpty())
            out << tab.background;
    }
    write_test_buttons(out, tab.buttons, version);
}

// All tabs as the scene keeps them: compressed at level 9, then Base64.
inline QString scene_data(const QList<test_tab>& tabs, int version = 5, int current = 0) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32(version) << qint32(tabs.size()) << qint32(current);
    for (int t = 0; t < tabs.size(); ++t) {
        out << qint32(t) << tabs[t].name;
        write_test_header(out, tabs[t], version);
    }
    return QString::fromLatin1(qCompress(bytes, 9).toBase64());
}

// A .pkr file of one tab.
inline bool write_pkr(const QString& path, const test_tab& tab, int version = 5) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream out(&file);
    out.setVersion(7);
    out << qint32(version) << tab.name;
    write_test_header(out, tab, version);
    return true;
}

// Reads the current stream layout back, for comparing what the picker wrote.
inline QList<test_tab> read_scene_data(const QString& base64) {
    const QByteArray bytes = qUncompress(QByteArray::fromBase64(base64.toLatin1()));
    QDataStream in(bytes);
    qint32 version = 0, count = 0, current = 0;
    in >> version >> count >> current;
    QList<test_tab> tabs;
    for (int t = 0; t < count && in.status() == QDataStream::Ok; ++t) {
        test_tab tab;
        qint32 index = 0, buttons = 0;
        in >> index >> tab.name >> tab.background_id;
        if (!tab.background_id.isEmpty())
            in >> tab.background;
        in >> buttons;
        for (int i = 0; i < buttons && in.status() == QDataStream::Ok; ++i) {
            test_button b;
            qint32 size = 0, targets = 0;
            in >> b.stored_index >> b.position >> size >> b.width >> b.height >> b.kind >>
                b.language >> b.color >> b.label_color >> b.label >> targets;
            for (int k = 0; k < targets && in.status() == QDataStream::Ok; ++k) {
                QString target;
                in >> target;
                b.targets << target;
            }
            tab.buttons << b;
        }
        tabs << tab;
    }
    return tabs;
}
