#include "runtime/FileTable.h"

const std::shared_ptr<TextFile>& FileTable::Get(int number) {
    std::shared_ptr<TextFile>& file = m_Files[number];
    if (!file)
        file = std::make_shared<TextFile>();
    return file;
}

std::shared_ptr<TextFile> FileTable::FindOpen(int number) const {
    const auto found = m_Files.find(number);
    if (found == m_Files.end() || !found->second || !found->second->IsOpen())
        return nullptr;
    return found->second;
}

void FileTable::CloseAll() {
    for (const auto& entry : m_Files)
        if (entry.second)
            entry.second->Close();
}

void FileTable::Clear() {
    CloseAll();
    m_Files.clear();
}
