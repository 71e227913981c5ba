#include "ScriptFiles.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

// Paths below the current folder are shown as a user would type them.
std::string shownPath(const std::string& path) {
    std::error_code error;
    const fs::path folder = fs::current_path(error);
    const fs::path relative = fs::path(path).lexically_relative(folder);
    const bool below =
        fs::path(path).is_absolute() && !error && !relative.empty() && *relative.begin() != "..";
    return below ? relative.string() : path;
}

bool isSame(const std::string& left, const std::string& right) {
    std::error_code error;
    return left == right || fs::equivalent(left, right, error);
}

bool readFile(const std::string& path, std::string& text) {
    std::error_code error;
    std::ifstream file(path, std::ios::binary);
    if (!file || fs::is_directory(path, error))
        return false;
    text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return !file.bad();
}

} // namespace

ScriptFile* ScriptFiles::Open(const std::string& path) {
    for (const auto& file : m_Files)
        if (isSame(file->path, path))
            return file.get();
    std::string text;
    if (!readFile(path, text))
        return nullptr;
    auto file = std::make_unique<ScriptFile>();
    file->path = path;
    file->shown = shownPath(path);
    file->text = ScriptText(text);
    Refresh(*file);
    m_Files.push_back(std::move(file));
    return m_Files.back().get();
}

ScriptFile* ScriptFiles::Find(const std::string& name) const {
    for (const auto& file : m_Files)
        if (file->path == name || file->shown == name || fs::path(file->path).filename() == name)
            return file.get();
    return nullptr;
}

void ScriptFiles::Refresh(ScriptFile& file) {
    file.outline = Outline(file.text.JoinForEngine(), file.path, m_Trace);
}

bool ScriptFiles::Save(ScriptFile& file, const std::string& path) {
    errno = 0;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << file.text.JoinForFile();
    out.close();
    if (!out)
        return false;
    if (isSame(file.path, path))
        file.text.SetUnchanged();
    return true;
}
