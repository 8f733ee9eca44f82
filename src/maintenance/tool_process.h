#pragma once

#include "core/store/store_error.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace kolibri {

/// The libraries that read other programs' files may crash on a damaged one. So the tool kolibri-db reads
/// them for the program, in a process of its own, and tells line by line what it finds.

/// The tool beside the running program.
QString toolPath();

/// Work that the program has the tool do.
struct ToolTask {
    /// Path of the tool.
    QString tool;
    QStringList arguments;
    /// The tool is ended after so many milliseconds without a line.
    int patience;
    /// What the user reads when the tool crashed or fell silent.
    QString words;
};

/// Called with the first word of a line and the rest of it.
using ToolLine = std::function<void(const QString& word, const QString& text)>;

/// Runs the tool to its end and hands over every line that it writes.
/// @throws StoreError with the tool's own words, or those of the task
void runTool(const ToolTask& task, const ToolLine& take);

/// The tool's side: writes a line.
void tellProgram(const QString& word, const QString& text);
/// The tool's side: does the work, and tells an error before it goes on.
void serveProgram(const std::function<void()>& work);

} // namespace kolibri
