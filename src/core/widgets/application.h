#pragma once

#include <QApplication>

namespace kolibri {

/// The program's application object: window icon, German decimal forms, and the net below every event
/// handler.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);

    /// An error that leaves a handler ends the operation, is shown in one box, and the program goes on.
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace kolibri
