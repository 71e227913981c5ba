#pragma once

#include "runtime/TextFile.h"

#include <SFM_Directory.h>

#include <memory>
#include <unordered_map>

/// The numbered streams of one processor, and its search through a directory. A stream keeps its
/// place in the table when it is closed. Shared, since a value that is printed or read into can run
/// code of the host that lets go of the table.
class FileTable {
public:
    /// The stream of a number, made closed if there is none.
    const std::shared_ptr<TextFile>& Get(int number);
    /// Null for a number that is not open.
    std::shared_ptr<TextFile> FindOpen(int number) const;
    void CloseAll();
    void Clear();

    SFM_Directory& GetSearch() { return m_Search; }
    /// What the search takes in besides plain files.
    unsigned& GetSearchAttributes() { return m_SearchAttributes; }

private:
    std::unordered_map<int, std::shared_ptr<TextFile>> m_Files;
    SFM_Directory m_Search;
    unsigned m_SearchAttributes = SFM_EntryPlain;
};
