// Building and querying a picker button by button from MEL, as a rigger's script does.
#include "plugin_fixture.h"

#include <QtTest>

class test_button_directives : public QObject {
    Q_OBJECT
    plugin_fixture f;

    QString stored() { return f.host.scene.file_info("ZelvaniPickerData"); }

private slots:
    void init() {
        f.start();
        f.mel("ZelvaniPicker;");
        f.mel("createNode transform -n \"hero:arm\"; createNode transform -n \"hero:leg\";"
              "select -cl;");
    }
    void cleanup() { f.host.reset(); }

    void adding_needs_a_selection() {
        QCOMPARE(f.mel("ZelvaniPicker add_button 10 20 \"A\"; ZelvaniPicker get_picker_data;"),
                 f.mel("ZelvaniPicker get_picker_data;"));
        QVERIFY(f.errors().isEmpty());
        f.mel("select hero:arm hero:leg; ZelvaniPicker add_button 10 20 \"Both\";");
        QCOMPARE(f.mel("ZelvaniPicker query_button label Both;"), QString("hero:arm hero:leg"));
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Both;"),
                 QString("Both 10 20 0 0 10 10 10 #b22222 #000000"));
        f.mel("ZelvaniPicker add_cmd_button 50 20 \"python\" \"Py\" \"print('hi')\";");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Py;").section(' ', 3, 4),
                 QString("1 1"));
    }

    // Numbers beyond int, or beyond any screen, from a script: held at the picker's edge.
    void far_positions_and_sizes_are_held() {
        f.mel("select hero:arm; ZelvaniPicker add_button 1e12 -1e12 \"Far\";");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Far;").section(' ', 1, 2),
                 QString("16777216 -16777216"));
        f.mel("ZelvaniPicker move_button label Far 3e9 nan;");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Far;").section(' ', 1, 2),
                 QString("16777216 0"));
        f.mel("ZelvaniPicker resize_button label Far 2147483647 -2147483648;");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Far;").section(' ', 5, 7),
                 QString("16777216 16777216 1"));
        f.mel("ZelvaniPicker set_button_properties label Far \"\" -2147483648 2147483647 \"\" "
              "\"\" \"\" 99999999999 \"\" \"\" \"\";");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Far;").section(' ', 1, 2),
                 QString("-16777216 16777216"));
        QCOMPARE(f.mel("ZelvaniPicker get_button_bounds label Far;").section(' ', 2, 2),
                 QString("16777216"));
        // Lookups by widget point at the ends of int find nothing and report it.
        QCOMPARE(f.mel("ZelvaniPicker move_button ignored 1e30 -1e30 0 0;"), QString("ERROR"));
        QVERIFY(f.errors().last().contains("Couldn't find any matching buttons!"));
        // Such a button still paints, hit tests and stores.
        f.mel("ZelvaniPicker set_button_properties label Far \"\" -inf nan \"\" \"\" \"\" \"\" "
              "\"\" \"\" \"\";");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Far;").section(' ', 1, 2),
                 QString("-16777216 0"));
        const int errors = f.errors().size();
        plugin_fixture::tabs()->currentWidget()->grab(); // paints every button
        f.mel("ZelvaniPicker get_picker_data;");
        QCOMPARE(f.errors().size(), errors);
    }

    void lookups_by_label_target_and_point() {
        f.mel("select hero:arm; ZelvaniPicker add_button 10 20 \"X\";"
              "ZelvaniPicker add_button 40 20 \"X\";");
        f.mel("ZelvaniPicker rename_button target hero:arm \"Last\";");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label X;").section(' ', 1, 1),
                 QString("10")); // the first of two labels
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Last;").section(' ', 1, 1),
                 QString("40")); // the last of two targets
        // The point form is told apart by the count alone; points are widget pixels.
        f.mel("ZelvaniPicker move_button ignored 10 20 100 120;");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label X;").section(' ', 1, 2),
                 QString("100 120"));
        const QString bounds = f.mel("ZelvaniPicker get_button_bounds label X;");
        f.mel("ZelvaniPicker move_button label X 0 0;");
        // The rectangle moves with the centre and keeps the size the label gave it.
        QCOMPARE(f.mel("ZelvaniPicker get_button_bounds label X;").section(' ', 2, 3),
                 bounds.section(' ', 2, 3));
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label X;").section(' ', 1, 2),
                 QString("0 0"));

        QCOMPARE(f.mel("ZelvaniPicker delete_button label nobody;"), QString("ERROR"));
        QCOMPARE(f.errors().last().trimmed(),
                 QString("// Error: Couldn't find any matching buttons! //"));
        f.mel("ZelvaniPicker delete_button label X;");
        QCOMPARE(f.mel("ZelvaniPicker query_button label X;"), QString("ERROR"));
    }

    void colours_in_every_form() {
        f.mel("select hero:arm; ZelvaniPicker add_button 10 20 \"A\";");
        f.mel("ZelvaniPicker color_button label A \"#ff0000\";");
        const QString named = f.mel("ZelvaniPicker get_button_properties label A;");
        f.mel("ZelvaniPicker color_button label A 0 0 255; ZelvaniPicker color_button label A 255 "
              "0 0;");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label A;"), named);
        f.mel("ZelvaniPicker color_button_text x 10 20 \"white\";");
        QVERIFY(f.mel("ZelvaniPicker get_button_properties label A;").endsWith("#ff0000 #ffffff"));
        QCOMPARE(f.mel("ZelvaniPicker color_button label;"), QString("ERROR"));
    }

    void properties_round_trip_and_empty_slots_keep_values() {
        f.mel("select hero:leg; ZelvaniPicker add_button 10 20 \"L\";");
        f.mel("ZelvaniPicker set_button_properties label L \"Leg\" 30 40 \"\" \"\" 99 24 12 "
              "\"#102030\" \"#ffffff\";");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Leg;"),
                 QString("Leg 30 40 0 0 24 24 12 #102030 #ffffff")); // size follows width
        f.mel("ZelvaniPicker set_button_properties label Leg \"\" \"\" \"\" \"\" \"\" \"\" \"\" "
              "\"\" \"\" \"\";");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Leg;"),
                 QString("Leg 30 40 0 0 24 24 12 #102030 #ffffff"));
        f.mel("ZelvaniPicker update_button label Leg \"hero:arm\";");
        QCOMPARE(f.mel("ZelvaniPicker query_button label Leg;"), QString("hero:arm"));
        f.mel("ZelvaniPicker resize_button label Leg 0 -5;");
        QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Leg;").section(' ', 5, 7),
                 QString("1 1 1"));
    }

    void batch_mode_holds_back_the_scene_write() {
        f.mel("select hero:arm; ZelvaniPicker add_button 10 20 \"A\";");
        const QString before = stored();
        QVERIFY(!before.isEmpty());
        f.mel("ZelvaniPicker enable_batch_mode;");
        f.mel("ZelvaniPicker add_button 30 60 \"B\";");
        QCOMPARE(stored(), before);
        f.mel("ZelvaniPicker disable_batch_mode;");
        QVERIFY(stored() != before);
    }

    // A rigger's script builds a picker, takes it as data and feeds it to a new scene.
    void a_scripted_picker_travels_as_data() {
        f.mel("ZelvaniPicker enable_batch_mode;"
              "for ($i = 0; $i < 50; $i++) {"
              "  string $label = \"B\" + $i;"
              "  if ($i % 5 == 4) {"
              "    ZelvaniPicker add_cmd_button ($i * 12) 80 \"mel\" $label (\"print \" + $i);"
              "  } else {"
              "    select (($i % 2) ? \"hero:arm\" : \"hero:leg\");"
              "    ZelvaniPicker add_button ($i * 12) 60 $label;"
              "  }"
              "  ZelvaniPicker set_button_properties label $label \"\" \"\" \"\" \"\" \"\" \"\" "
              "    (8 + $i % 7) (9 + $i % 3) \"\" \"#ffffff\";"
              "  ZelvaniPicker color_button label $label ($i * 5) 100 (255 - $i);"
              "}"
              "ZelvaniPicker disable_batch_mode;");
        QVERIFY(f.errors().isEmpty());
        QStringList before;
        for (int i = 0; i < 50; ++i)
            before << f.mel(QString("ZelvaniPicker get_button_properties label B%1;").arg(i));
        QCOMPARE(before[4].section(' ', 3, 3), QString("1")); // a command button
        QCOMPARE(before[7], QString("B7 84 60 0 0 8 8 10 #2364f8 #ffffff"));

        const QString all = f.mel("ZelvaniPicker get_picker_data;");
        f.mel("file -f -new; ZelvaniPicker open_picker_data \"" + all + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Untitled"));
        plugin_fixture::tabs()->setCurrentIndex(1);
        for (int i = 0; i < 50; ++i)
            QCOMPARE(f.mel(QString("ZelvaniPicker get_button_properties label B%1;").arg(i)),
                     before[i]);
        QCOMPARE(f.mel("ZelvaniPicker query_button label B9;"), QString("print 9"));
        QCOMPARE(f.mel("ZelvaniPicker query_button label B8;"), QString("hero:leg"));
    }
};

QTEST_MAIN(test_button_directives)
#include "test_button_directives.moc"
