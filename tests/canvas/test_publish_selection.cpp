// A click hands the selected names to the host as MEL: names from a file must stay names.
#include "core/session.h"
#include "document/selected_objects.h"
#include "window/picker_window.h"

#include <QtTest>

class test_publish_selection : public QObject {
    Q_OBJECT

private slots:
    void names_go_as_they_stand_and_anything_else_quoted() {
        host::session& host = host::session::get();
        picker_window window(nullptr);
        host.idle.clear();
        selected_objects = QStringList{"rig:arm", "|grp|rig:leg", "pCube1.vtx[0:3]",
                                       "a; createNode transform -n pwned", "b\"`x`"};
        QVERIFY(window.publish_selection());
        selected_objects.clear();
        QVERIFY(window.publish_selection());
        QCOMPARE(host.idle.size(), 2);
        QCOMPARE(host.idle.pending()[0].text,
                 QString("ZelvaniPicker select rig:arm |grp|rig:leg pCube1.vtx[0:3] "
                         "\"a; createNode transform -n pwned\" \"b\\\"`x`\""));
        QCOMPARE(host.idle.pending()[1].text, QString("ZelvaniPicker clear"));
        host.idle.clear();
    }
};

QTEST_MAIN(test_publish_selection)
#include "test_publish_selection.moc"
