#pragma once
// The pickers that the Qt 5 and the Qt 6 build each wrote into tests/data/pickers, so that
// every build reads what the other wrote: what they hold, and the steps that write them.
// The steps are the user's own: directives, the Save of a tab, and a scene save.
#include "picker_data.h"
#include "plugin_fixture.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>

struct picker_tab_source {
    QString name;
    QString picture; // file in tests/data/pickers
    QList<test_button> buttons;
};

inline test_button picker_source_button(const QString& label, const QStringList& targets,
                                        QPoint position, QSize size, quint32 color,
                                        quint32 label_color, int kind = 0, int language = 0) {
    test_button b;
    b.label = label;
    b.targets = targets;
    b.position = position;
    b.width = size.width();
    b.height = size.height();
    b.color = 0xff000000u | color; // the colour directives keep QColor::rgb, opaque
    b.label_color = 0xff000000u | label_color;
    b.kind = kind;
    b.language = language;
    return b;
}

// "Body" is the .pkr file and the scene's second tab; "Face" only lives in the scene.
inline QList<picker_tab_source> picker_sources() {
    const QString arm = "hero:L_arm_ctrl", hand = "hero:L_hand_ctrl";
    picker_tab_source body{"Body", "body.png", {}};
    body.buttons << picker_source_button("L Arm", {arm, hand}, {30, 40}, {40, 16}, 0x4a90e2,
                                         0xffffff)
                 << picker_source_button("Hips", {"hero:hips_ctrl"}, {64, 90}, {60, 20}, 0xf2c14e,
                                         0x000000)
                 << picker_source_button("All", {"select -r \"hero:*_ctrl\";"}, {10, 8}, {36, 14},
                                         0x6f7782, 0xffffff, 1, 0)
                 << picker_source_button("Py", {"print('hero')"}, {50, 8}, {24, 14}, 0x123456,
                                         0xfedcba, 1, 1);
    picker_tab_source face{"Face", "face.png", {}};
    face.buttons << picker_source_button("Jaw", {"hero:jaw_ctrl"}, {24, 30}, {30, 12}, 0xb48ce0,
                                         0x101010);
    return {body, face};
}

inline QString picker_sources_dir() {
    return QStringLiteral(ZELVANI_SOURCE_DIR "/tests/data/pickers");
}

inline QString mel_string(const QString& text) {
    return '"' + QString(text).replace('\\', "\\\\").replace('"', "\\\"") + '"';
}

// Names the current tab, sets its picture and adds its buttons, through directives. A new
// picture reaches the scene's data with the next edit, so the buttons come last.
inline void build_picker_tab(plugin_fixture& f, const picker_tab_source& tab) {
    f.mel("ZelvaniPicker rename_tab " + mel_string(tab.name) + ";");
    f.mel("ZelvaniPicker set_background " + mel_string(picker_sources_dir() + "/" + tab.picture) +
          ";");
    for (const test_button& b : tab.buttons) {
        const QString label = mel_string(b.label);
        if (b.kind == 0) {
            f.mel("select -r " + b.targets.join(' ') + "; ZelvaniPicker add_button 0 0 " + label +
                  ";");
        } else {
            f.mel(QStringLiteral("ZelvaniPicker add_cmd_button 0 0 \"%1\" %2 %3;")
                      .arg(QString(b.language ? "python" : "mel"), label,
                           mel_string(b.targets.value(0))));
        }
        const QColor color = QColor::fromRgb(b.color), text = QColor::fromRgb(b.label_color);
        f.mel(QStringLiteral("ZelvaniPicker move_button label %1 %2 %3;"
                             "ZelvaniPicker resize_button label %1 %4 %5;"
                             "ZelvaniPicker color_button label %1 %6 %7 %8;"
                             "ZelvaniPicker color_button_text label %1 %9 %10 %11;")
                  .arg(label)
                  .arg(b.position.x())
                  .arg(b.position.y())
                  .arg(b.width)
                  .arg(b.height)
                  .arg(color.red())
                  .arg(color.green())
                  .arg(color.blue())
                  .arg(text.red())
                  .arg(text.green())
                  .arg(text.blue()));
    }
}

// One value of every type the picker streams hold, at the default version of byte-array
// streams and at the version of .pkr files. The picture carries its resolution; one without
// would take the screen's. A picture whose colour space Qt has to describe itself (a PNG with
// gAMA and cHRM, such as face.png) gets an ICC profile naming the Qt version, so it is left
// out here: it is byte-stable once read back from a stream, which the pickers show.
inline QByteArray stream_value_samples() {
    QByteArray bytes;
    const QPixmap picture(picker_sources_dir() + "/body.png");
    for (int version : {0, 7}) {
        QDataStream out(&bytes, QIODevice::WriteOnly | QIODevice::Append);
        if (version)
            out.setVersion(version);
        out << qint32(0) << qint32(-1) << qint32(0x7fffffff) << qint32(-0x7fffffff - 1)
            << QPoint(-12, 34567) << QString() << QString("") << QString("hero:L_arm_ctrl")
            << QString::fromUtf8("Kn\xc3\xb6"
                                 "chel \xe8\x85\x95 \xf0\x9f\xa6\xb4")
            << QPixmap() << picture;
    }
    return bytes;
}

// Writes picker.pkr (the "Body" tab), scene.ma (tabs "Untitled", "Body" and "Face", with an
// image entry for each picture) and values.bin into `dir` with the plug-in of this build.
inline bool write_picker_files(plugin_fixture& f, const QString& dir) {
    const QList<picker_tab_source> tabs = picker_sources();
    f.start();
    f.mel("namespace -add \"hero\"; ZelvaniPicker;");
    for (const picker_tab_source& tab : tabs) {
        for (const test_button& b : tab.buttons) {
            if (b.kind == 0) {
                for (const QString& target : b.targets)
                    f.mel("createNode transform -n " + mel_string(target) + ";");
            }
        }
    }
    // A tab has a file to save to once it was opened from one: start from an empty file.
    const QString pkr = dir + "/picker.pkr";
    QFile seed(pkr);
    if (!seed.open(QIODevice::WriteOnly))
        return false;
    seed.close();
    f.mel("ZelvaniPicker open " + mel_string(pkr) + ";");
    // The picture set first goes to an image entry of its own when the second replaces it.
    f.mel("ZelvaniPicker set_background " + mel_string(picker_sources_dir() + "/face.png") + ";");
    build_picker_tab(f, tabs[0]);
    f.mel("ZelvaniPicker save;");
    f.mel("ZelvaniPicker new_tab;");
    build_picker_tab(f, tabs[1]);
    const QString ma = dir + "/scene.ma";
    f.mel("file -rename " + mel_string(ma) + "; file -save;");
    // Opened again, the scene stores each tab's picture under its key too.
    f.mel("file -f -open " + mel_string(ma) + ";");
    f.mel("file -save;");
    QFile values(dir + "/values.bin");
    if (!values.open(QIODevice::WriteOnly) || values.write(stream_value_samples()) < 0)
        return false;
    return f.errors().isEmpty() && f.unexpected_dialogs.isEmpty();
}

// The picker entries of a saved scene, by key.
inline QMap<QString, QString> scene_picker_entries(const QString& path) {
    QFile file(path);
    QMap<QString, QString> entries;
    if (!file.open(QIODevice::ReadOnly))
        return entries;
    static const QRegularExpression entry(
        QStringLiteral("^fileInfo \"(ZelvaniPicker[A-Za-z_0-9]*)\" \"([^\"]*)\";$"),
        QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(file.readAll());
    for (auto it = entry.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        entries.insert(m.captured(1), m.captured(2));
    }
    return entries;
}
