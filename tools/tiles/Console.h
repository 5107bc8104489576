// The two streams of the program: results alone on the standard output, so that scripts can read
// them, and everything else on the standard error stream.
#pragma once

#include <cstdio>
#include <initializer_list>
#include <string>

namespace OrlekTiles {

/// The library prints lines of its own on the standard output. They are set aside for the life of
/// the process: dropped, or shown on the standard error stream. Make one object, first of all.
class Console {
public:
    /// Throws std::runtime_error when there is no standard output.
    Console();
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Shows the library's lines from now on.
    static void showLibraryLines();

    /// Prints text as it stands.
    void print(const std::string& text);

    /// Prints a line of fields with tabs between them; what would break it is escaped (\x0A).
    void printFields(std::initializer_list<std::string> fields);

    /// Throws std::runtime_error when not all results could be written.
    void finish();

    /// Prints a line for people.
    static void note(const std::string& text);

private:
    std::FILE* mResults;
};

/// The text with control characters as \x0A.
std::string printable(const std::string& text);

}  // namespace OrlekTiles
