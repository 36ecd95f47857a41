// Writes the demo character's picker: sandbox/demo/hero.pkr, and the same tab stored in
// sandbox/demo/hero.ma, so that opening the picker on the demo scene shows it at once.
// The scene first gets the arm switches of scripts/rig_setup.mel; the command buttons run
// the scripts beside it.
//
// Regenerate after changing the layout:
//   cmake --build build --target make_demo_picker
//   QT_QPA_PLATFORM=offscreen build/sandbox/make_demo_picker sandbox/demo
#include "core/session.h"
#include "document/button_geometry.h"
#include "document/picker_stream.h"
#include "document/scene_text.h"

#include <QDataStream>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cstdio>

namespace {

constexpr QRgb centre = 0xf2c14e, left = 0x4a90e2, right = 0xe24a4a, face = 0xb48ce0,
               command = 0x6f7782;

struct layout {
    QList<picker_button*> buttons;

    void add(int x, int y, int w, int h, QRgb color, const QString& label,
             const QStringList& controls, int kind = 0, int language = 0) {
        picker_button_data data;
        data.position = QPoint(x, y);
        data.width = w;
        data.height = h;
        data.color = color;
        data.label_color = color == left || color == right || color == command ? 0xffffff : 0;
        data.label = label;
        data.kind = kind;
        data.language = language;
        for (const QString& control : controls)
            data.targets << (kind ? control : QStringLiteral("hero:") + control + "_ctrl");
        buttons << make_button_record(data);
    }
    // The character's right side lies on the left of the picture.
    void pair(int x_offset, int y, int w, int h, const QString& label, const QString& control,
              QRgb right_color = right, QRgb left_color = left) {
        add(200 - x_offset, y, w, h, right_color, label.isEmpty() ? QString() : "R " + label,
            {"R_" + control});
        add(200 + x_offset, y, w, h, left_color, label.isEmpty() ? QString() : "L " + label,
            {"L_" + control});
    }
};

// A Python button: the selection moves to the other side's controls.
const QString mirror_script =
    QStringLiteral("import re\n"
                   "import maya.cmds as cmds\n"
                   "\n"
                   "side = {'L_': 'R_', 'R_': 'L_'}\n"
                   "mirrored = [re.sub(r'(?<=:)[LR]_', lambda m: side[m.group()], name)\n"
                   "            for name in cmds.ls(sl=True)]\n"
                   "cmds.select([name for name in mirrored if cmds.objExists(name)])\n");

QString script(const QString& dir, const QString& name) {
    QFile file(dir + "/scripts/" + name);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "make_demo_picker: cannot read %s\n", qPrintable(file.fileName()));
        return QString();
    }
    return QString::fromUtf8(file.readAll());
}

layout hero_layout(const QString& dir) {
    layout l;
    l.add(200, 14, 56, 16, centre, "Head", {"head"});
    l.pair(20, 34, 22, 8, "", "brow", face, face);
    l.pair(18, 48, 12, 10, "", "eye", face, face);
    l.add(200, 48, 10, 10, face, "", {"L_eye", "R_eye"}); // both eyes: a dot
    l.add(200, 70, 14, 8, face, "", {"mouth"});
    l.pair(16, 70, 8, 8, "", "mouthCorner", face, face);
    l.add(200, 88, 36, 12, face, "Jaw", {"jaw"});
    l.add(200, 112, 30, 12, centre, "Neck", {"neck"});
    l.add(200, 150, 84, 20, centre, "Chest", {"chest"});
    l.add(200, 196, 66, 18, centre, "Spine", {"spine"});
    l.add(200, 236, 110, 18, centre, "COG", {"cog"});
    l.add(200, 272, 84, 18, centre, "Hips", {"hips"});
    l.pair(72, 140, 44, 16, "Sh", "shoulder");
    l.pair(102, 200, 42, 16, "El", "elbow");
    l.pair(122, 258, 42, 16, "Wr", "wrist");
    const QStringList fingers{"thumb", "index", "middle", "ring", "pinky"};
    for (int f = 0; f < fingers.size(); ++f) {
        const QString letter = fingers[f].left(1).toUpper();
        l.pair(98 + f * 12, 288, 10, 14, "", fingers[f]);
        l.buttons[l.buttons.size() - 2]->label = letter; // short labels on the fingers
        l.buttons[l.buttons.size() - 1]->label = letter;
        update_button_geometry(*l.buttons[l.buttons.size() - 2]);
        update_button_geometry(*l.buttons[l.buttons.size() - 1]);
    }
    l.pair(36, 312, 44, 16, "Hip", "hip");
    l.pair(40, 392, 44, 16, "Knee", "knee");
    l.pair(42, 462, 44, 16, "Ank", "ankle");
    l.pair(50, 496, 50, 16, "Foot", "foot");
    l.pair(56, 522, 36, 12, "", "toe");
    l.add(200, 496, 14, 14, centre, "", {"L_foot", "R_foot"}); // both feet: a dot
    l.add(200, 546, 220, 14, centre, "Root", {"root"});
    l.add(36, 16, 56, 16, command, "All", {"select -r \"hero:*_ctrl\";"}, 1);
    l.add(36, 36, 56, 16, command, "None", {"select -cl;"}, 1);
    l.add(36, 56, 56, 16, command, "L Arm",
          {"select -r hero:L_shoulder_ctrl hero:L_elbow_ctrl hero:L_wrist_ctrl;"}, 1);
    l.add(36, 76, 56, 16, command, "Mirror", {mirror_script}, 1, 1);
    l.add(36, 96, 56, 16, command, "Reset", {script(dir, "reset.mel")}, 1);
    l.add(36, 116, 56, 16, command, "Key", {script(dir, "key.mel")}, 1);
    l.add(36, 136, 56, 16, command, "IK/FK", {script(dir, "switch_ikfk.mel")}, 1);
    // The arms' IK hand controls and their switches.
    l.pair(150, 232, 34, 14, "IK", "arm_ik");
    l.pair(100, 116, 40, 12, "Sw", "arm_settings");
    return l;
}

QPixmap silhouette() {
    QImage image(400, 560, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor body(0x3b, 0x47, 0x58);
    p.setPen(Qt::NoPen);
    p.setBrush(body);
    p.drawEllipse(QPointF(200, 58), 42, 52);
    p.drawRoundedRect(QRectF(184, 100, 32, 24), 6, 6);
    p.drawRoundedRect(QRectF(138, 122, 124, 180), 28, 28);
    QPen limb(body, 24, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(limb);
    p.drawPolyline(QPolygonF({QPointF(150, 140), QPointF(98, 200), QPointF(78, 262)}));
    p.drawPolyline(QPolygonF({QPointF(250, 140), QPointF(302, 200), QPointF(322, 262)}));
    limb.setWidth(30);
    p.setPen(limb);
    p.drawPolyline(QPolygonF({QPointF(166, 300), QPointF(160, 392), QPointF(158, 462)}));
    p.drawPolyline(QPolygonF({QPointF(234, 300), QPointF(240, 392), QPointF(242, 462)}));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QPointF(82, 290), 26, 16);
    p.drawEllipse(QPointF(318, 290), 26, 16);
    p.drawEllipse(QPointF(146, 506), 30, 14);
    p.drawEllipse(QPointF(254, 506), 30, 14);
    return QPixmap::fromImage(image);
}

bool write_pkr(const QString& path, const QString& id, const QPixmap& picture,
               const QList<picker_button*>& buttons) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream out(&file);
    out.setVersion(picker_file_stream_version);
    out << qint32(picker_format_version) << QStringLiteral("Hero") << id << picture;
    write_button_block(out, buttons);
    return true;
}

QString scene_text(const QString& id, const QPixmap& picture,
                   const QList<picker_button*>& buttons) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32(picker_format_version) << qint32(1) << qint32(0) << qint32(0)
        << QStringLiteral("Hero") << id << picture;
    write_button_block(out, buttons);
    return encode_picker_data(bytes);
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: make_demo_picker <sandbox/demo folder>\n");
        return 2;
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    const layout l = hero_layout(dir);
    const QPixmap picture = silhouette();
    const QString id = QString::number(picture.cacheKey());
    bool ok = write_pkr(dir + "/hero.pkr", id, picture, l.buttons);

    host::session& host = host::session::get();
    QString error;
    const QString scene = dir + "/hero.ma";
    ok = ok && host.open_scene(scene, &error);
    ok = ok && host.execute(script(dir, "rig_setup.mel")).ok;
    if (ok) {
        host.scene.set_file_info(QStringLiteral("ZelvaniPickerData"),
                                 scene_text(id, picture, l.buttons));
        ok = host.save_scene(scene, &error);
    }
    qDeleteAll(l.buttons);
    if (!ok)
        std::fprintf(stderr, "make_demo_picker: %s\n", qPrintable(error));
    return ok ? 0 : 1;
}
