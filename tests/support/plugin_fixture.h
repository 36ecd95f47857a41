#pragma once
// Drives the plug-in as Maya does: the host loads the library and calls it through MEL.
#include "core/session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QTabWidget>
#include <QTimer>
#include <maya/MQtUtil.h>

struct plugin_fixture {
    host::session& host = host::session::get();
    QStringList lines;              // everything the host printed since start()
    QStringList unexpected_dialogs; // titles of dialogs nobody answered, closed after a while

    plugin_fixture() {
        // A dialog that no test expects would wait for ever: close it and note it.
        auto* watchdog = new QTimer(qApp);
        QObject::connect(watchdog, &QTimer::timeout, [this] {
            static QPointer<QWidget> seen;
            QWidget* modal = QApplication::activeModalWidget();
            if (modal && modal == seen) {
                unexpected_dialogs << modal->windowTitle();
                if (auto* dialog = qobject_cast<QDialog*>(modal))
                    dialog->reject();
            }
            seen = modal;
        });
        watchdog->start(1000);
    }

    // A fresh host with its output captured; with `load`, the plug-in loaded and its
    // start-up script run.
    void start(bool load = true) {
        host.reset();
        lines.clear();
        unexpected_dialogs.clear();
        host.out.set_sink([this](host::line_kind, const QString& l) { lines << l; });
        if (load) {
            QString error;
            if (!host.load_plugin(QStringLiteral(ZELVANI_PLUGIN_PATH), &error))
                qFatal("cannot load the plug-in: %s", qPrintable(error));
            host.run_idle();
        }
    }

    // One execution as the script editor runs it, then idle; its value, or "ERROR".
    QString mel(const QString& text) {
        const host::execution r = host.execute(text);
        host.run_idle();
        return r.ok ? r.values.join(QLatin1Char(' ')) : QStringLiteral("ERROR");
    }

    QStringList errors() const { return lines.filter(QStringLiteral("// Error:")); }

    static QDockWidget* dock() {
        QWidget* main = MQtUtil::mainWindow();
        return main ? main->findChild<QDockWidget*>(QStringLiteral("ZelvaniPicker")) : nullptr;
    }
    static QTabWidget* tabs() {
        QDockWidget* d = dock();
        return d ? d->findChild<QTabWidget*>() : nullptr;
    }
};

// Answers the next modal dialog as a user would, by pressing `button`; records its text.
class dialog_answerer : public QObject {
public:
    explicit dialog_answerer(QMessageBox::StandardButton button) : button_(button) { poll(); }
    QString title, text;
    bool answered = false;

private:
    void poll() {
        QTimer::singleShot(10, this, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return poll();
            title = box->windowTitle();
            text = box->text();
            answered = true;
            if (QAbstractButton* b = box->button(button_))
                b->click();
            else
                box->reject();
        });
    }
    QMessageBox::StandardButton button_;
};
