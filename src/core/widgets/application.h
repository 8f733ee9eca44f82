#pragma once

#include <QApplication>
#include <QTranslator>

namespace kolibri {

/// The program's application object: the look of the house, German, and the net below every event handler.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);

    /// An error that leaves a handler ends the operation, is shown in one box, and the program goes on.
    bool notify(QObject* receiver, QEvent* event) override;

protected:
    bool event(QEvent* event) override;

private:
    void caughtError(std::exception_ptr error);

    QTranslator m_german;
    bool m_showingError = false;
};

} // namespace kolibri
