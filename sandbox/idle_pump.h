#pragma once
// Runs the host's idle queue whenever Qt's event loop has nothing else to do, as Maya
// does between events.
#include <QObject>

namespace sandbox {

class idle_pump : public QObject {
    Q_OBJECT
public:
    explicit idle_pump(QObject* parent = nullptr);

signals:
    // After the queue ran, so that views can catch up with what it changed.
    void drained();

private:
    void about_to_block();
    void run();
    bool scheduled_ = false;
};

} // namespace sandbox
