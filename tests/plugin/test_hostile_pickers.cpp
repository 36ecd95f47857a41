// Pickers built to attack: labels, targets, tab names, background ids and command texts
// full of quotes, backslashes, semicolons, back-quotes, line breaks, NUL and very long
// text. Opening, restoring, pasting, selecting and binding them must hand the host only
// the system's own MEL, with the data inside it as data; only a click on a command button
// runs its script. Every text queued on idle is checked, and so is the scene.
#include "picker_data.h"
#include "picker_mel_lines.h"
#include "plugin_fixture.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Each one would create a node "pwned..." or run Python, were it ever run as code.
QStringList hostile_texts() {
    return {QStringLiteral("\"; python(\"import os\"); createNode transform -n \"pwned_q\"; //"),
            QStringLiteral("\\\"; createNode transform -n pwned_b; //"),
            QStringLiteral("hero:arm; createNode transform -n pwned_s;"),
            QStringLiteral("`createNode transform -n pwned_bq`"),
            QStringLiteral("hero:arm\ncreateNode transform -n pwned_nl;"),
            QStringLiteral("hero:arm\n"),
            QStringLiteral("hero:arm") + QChar(0) + QStringLiteral("; createNode -n pwned_nul;"),
            QStringLiteral("hero:") + QString(100000, QLatin1Char('x')) +
                QStringLiteral("\"; createNode transform -n pwned_long;"),
            QStringLiteral("'); python(\"exec('boom')\"); ('"),
            QStringLiteral("hero:{\"a\", `ls`}; $x = `file -f -new`;")};
}

// The command buttons' own script: it may run after a click, and only then.
const char* const click_script = "createNode transform -n \"clicked\";";

test_tab hostile_tab() {
    QImage image(4, 3, QImage::Format_ARGB32);
    image.fill(Qt::red);
    test_tab tab{hostile_texts().first(),
                 {},
                 QStringLiteral("7\"; createNode -n pwned_bg; \""),
                 QPixmap::fromImage(image)};
    int x = 20;
    for (const QString& text : hostile_texts()) {
        test_button selection;
        selection.label = text.left(40);
        selection.targets = QStringList{text, QStringLiteral("hero:arm"), text + text};
        selection.position = QPoint(x, 30);
        test_button command;
        command.label = text.left(40);
        command.kind = 1;
        command.language = x % 40 ? 0 : 1; // MEL and Python
        command.targets = QStringList{QString::fromLatin1(click_script)};
        command.position = QPoint(x, 150);
        tab.buttons << selection << command;
        x += 25;
    }
    return tab;
}

} // namespace

class test_hostile_pickers : public QObject {
    Q_OBJECT
    plugin_fixture f;
    QTemporaryDir dir;
    QStringList names_selected; // every name a select line carried, in order
    QTimer accept_dialogs;      // answers every dialog with OK, as a trusting user would

    QWidget* view() { return plugin_fixture::tabs()->currentWidget(); }

    void trigger(const QString& text) {
        for (QAction* menu : plugin_fixture::dock()->findChild<QMenuBar*>()->actions()) {
            emit menu->menu()->aboutToShow();
            for (QAction* action : menu->menu()->actions()) {
                // "Undo" reads "Undo Paste Buttons" while there is one.
                const bool named = action->text() == text || action->text().startsWith(text + ' ');
                if (named && action->isEnabled())
                    return action->trigger();
            }
        }
        QFAIL(qPrintable("no enabled action " + text));
    }

    // Runs what is queued, then checks all that was queued since the last check.
    void check_queued_texts() {
        f.host.run_idle();
        for (const auto& entry : f.host.idle.log()) {
            QVERIFY2(entry.what != host::idle_queue::kind::python, qPrintable(entry.text));
            if (entry.what != host::idle_queue::kind::mel || own_fixed_line(entry.text))
                continue;
            QStringList words;
            QVERIFY2(select_arguments(entry.text, &words), qPrintable(entry.text.left(300)));
            names_selected << words;
        }
        f.host.idle.clear_log();
        QVERIFY(f.host.python_log.isEmpty());
        QVERIFY(f.host.scene.match("pwned*").isEmpty());
        QVERIFY(f.host.scene.match("clicked").isEmpty());
        QVERIFY(f.host.scene.exists("hero:arm"));
    }

    // A band over the whole tab, from a corner where no button lies; the selection goes to
    // the host at the release.
    void select_everything() {
        const QPoint from(-5, -5), to(view()->width() + 5, view()->height() + 5);
        QTest::mousePress(view(), Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, view()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view(), &move);
        QTest::mouseRelease(view(), Qt::LeftButton, Qt::NoModifier, to);
    }

private slots:
    void init() {
        f.start();
        f.mel("namespace -add \"hero\"; createNode transform -n \"hero:arm\"; ZelvaniPicker;");
        plugin_fixture::dock()->resize(600, 400);
        f.host.idle.set_logging(true);
        names_selected.clear();
        connect(&accept_dialogs, &QTimer::timeout, this, [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                dialog->accept();
        });
        accept_dialogs.start(0);
    }
    void cleanup() {
        accept_dialogs.stop();
        accept_dialogs.disconnect();
        f.host.reset();
    }

    void opening_restoring_pasting_selecting_and_binding_run_nothing() {
        const test_tab tab = hostile_tab();
        const QString pkr = dir.filePath("hostile.pkr");
        QVERIFY(write_pkr(pkr, tab));
        f.mel("ZelvaniPicker open \"" + pkr + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;").count("Untitled"), 1);
        check_queued_texts();

        f.mel("ZelvaniPicker restore \"" + scene_data({tab, tab}) + "\";");
        f.mel("ZelvaniPicker open_picker_data \"" + scene_data({tab}) + "\";");
        check_queued_texts();

        // The clipboard's payload, pasted twice into a fresh tab.
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        out << qint32(1);
        write_test_buttons(out, tab.buttons, 5);
        auto* mime = new QMimeData;
        mime->setData("application/x-qt-picker-mime;value=\"buttons\"", payload);
        QGuiApplication::clipboard()->setMimeData(mime);
        f.mel("ZelvaniPicker new_tab;");
        trigger("Paste");
        trigger("Paste in Place");
        trigger("Undo");
        trigger("Redo");
        check_queued_texts();

        // Selecting from the picker sends exactly the targets' names, each as one word.
        select_everything();
        check_queued_texts();
        QVERIFY(!names_selected.isEmpty());
        for (const QString& text : hostile_texts()) {
            // No MEL text can hold a NUL, and no object's name: such a name stays behind.
            QCOMPARE(names_selected.contains(text), !text.contains(QChar(0)));
        }
        // Selecting from the scene lights the buttons up, and runs nothing either.
        f.mel("select -r hero:arm;");
        check_queued_texts();

        // Binding rewrites names and command texts as data, and asks first.
        f.mel("namespace -add \"rig\"; ZelvaniPicker rebind rig \":\";");
        f.mel("ZelvaniPicker bind rig;");
        f.mel("ZelvaniPicker update_namespace rig;");
        select_everything();
        check_queued_texts();
    }

    void only_a_click_on_a_command_button_runs_its_script() {
        const QString pkr = dir.filePath("hostile.pkr");
        QVERIFY(write_pkr(pkr, hostile_tab()));
        f.mel("ZelvaniPicker open \"" + pkr + "\";");
        check_queued_texts();
        // The first command button, a MEL one, sits at (20, 150) of the picker, which the
        // view shows unzoomed from its corner.
        QTest::mouseClick(view(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 150));
        QCOMPARE(int(f.host.idle.log().size()), 1);
        QCOMPARE(f.host.idle.log()[0].text, QString::fromLatin1(click_script));
        f.host.run_idle();
        QVERIFY(f.host.scene.exists("clicked"));
        QVERIFY(f.host.scene.match("pwned*").isEmpty());
    }
};

QTEST_MAIN(test_hostile_pickers)
#include "test_hostile_pickers.moc"
