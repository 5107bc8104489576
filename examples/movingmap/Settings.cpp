// The property store of the process has the settings; this class adds who wins and what is sound.
#include "Settings.h"

#include <cstdio>
#include <filesystem>
#include <utility>

#include "ColourText.h"
#include "TextLines.h"

namespace MovingMap {

namespace {

using OrlekSupport::textOf;

Orlek::Misc::Property& properties() {
    return Orlek::Misc::Property::instance();
}

bool isThere(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

std::string absolute(const std::string& path) {
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    return error ? path : whole.lexically_normal().string();
}

}  // namespace

Settings::Settings(std::string file) : mFile(std::move(file)) {
    if (!mFile.empty() && isThere(mFile) && !properties().readXmlFile(mFile)) {
        std::fflush(stdout);
        std::fprintf(stderr,
                     "orlek-movingmap: %s cannot be read: there are no settings, and it is left as "
                     "it is\n",
                     inALine(mFile).c_str());
        mFile.clear();
    }
}

std::optional<std::string> Settings::stored(const char* key) {
    std::string text = properties().getString(key, "0");
    return text == properties().getString(key, "1") ? std::optional(std::move(text)) : std::nullopt;
}

bool Settings::given(const char* option) {
    return Orlek::Misc::CmdLine::instance().getSwitch(option);
}

void Settings::complain(const std::string& reason) const {
    std::fflush(stdout);
    std::fprintf(stderr, "orlek-movingmap: %s: %s; the default is used\n", inALine(mFile).c_str(),
                 inALine(reason).c_str());
}

double Settings::number(const char* option, const char* key, double low, double high) const {
    return value(option, key, [&](const std::string& name, const std::string& text) {
        return OrlekSupport::numberIn(name, text, low, high);
    });
}

std::string Settings::path(const char* option, const char* key, const char* keyword) const {
    std::string wanted = textOf(option);
    const auto text = stored(key);
    if (given(option) || !text) {
        const bool literal = wanted.empty() || wanted == keyword;
        const std::string kept = literal ? wanted : absolute(wanted);
        properties().setString(key, given(option) ? kept : "");
        return wanted;
    }
    if (text->empty() || *text == keyword) {
        return text->empty() ? wanted : *text;
    }
    const std::filesystem::path whole = std::filesystem::path(mFile).parent_path() / *text;
    if (!isThere(whole)) {
        complain(std::string(key) + ": '" + *text + "' does not exist");
        return wanted;
    }
    return whole.string();
}

bool Settings::toggle(const char* on, const char* off, const char* key) const {
    const auto text = stored(key);
    if (given(on) || given(off) || !text) {
        const bool value = given(on) && !given(off);
        properties().setSwitch(key, value);
        return value;
    }
    const bool value = properties().getSwitch(key, false);
    if (!value && *text != "false" && *text != "False" && *text != "FALSE") {
        complain(std::string(key) + ": '" + *text + "' is neither true nor false");
    }
    return value;
}

void Settings::colour(const char* key, Colour& value) const {
    const auto text = stored(key);
    if (!text) {
        properties().setString(key, colourText(value));
    } else if (const auto colour = parseColour(*text)) {
        value = *colour;
    } else {
        complain(std::string(key) + ": '" + *text + "' is no colour such as " + colourText(value));
    }
}

}  // namespace MovingMap
