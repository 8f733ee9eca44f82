// Says what the program says when its page module is not beside it.

#include "core/page_module.h"

#include <QGuiApplication>
#include <QTextStream>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    try {
        kolibri::pageModule();
    } catch (const kolibri::PageError& error) {
        QTextStream(stdout) << error.message() << '\n' << error.details() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
