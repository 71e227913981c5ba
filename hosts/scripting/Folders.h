#pragma once

#include <AutomationObject.h>

#include <vector>

namespace scripting {

using kel_ns::SYS_String;

/// What files and folders have in common. They are known by their absolute path and look at the
/// disk anew with every question.
class FileSystemEntry : public automation::Object {
protected:
    explicit FileSystemEntry(const SYS_String& path) : m_Path(path) {}

    const SYS_String& GetPath() const { return m_Path; }
    SYS_String GetName() const;
    /// Nothing for the root.
    COleVariant GetParentFolder() const;

    friend struct EntryMembers;

    SYS_String m_Path;
};

class File final : public FileSystemEntry {
public:
    /// Raises: Failure if there is no such file.
    static COleVariant Make(const SYS_String& path);

    const automation::Members& GetMembers() const override;

private:
    using FileSystemEntry::FileSystemEntry;

    COleVariant GetSize() const;
    void Delete();
    void Copy(const automation::Arguments& arguments);
    void Move(const automation::Arguments& arguments);
    COleVariant OpenAsTextStream(const automation::Arguments& arguments);
};

class Folder final : public FileSystemEntry {
public:
    /// Raises: Failure if there is no such folder.
    static COleVariant Make(const SYS_String& path);

    const automation::Members& GetMembers() const override;

private:
    using FileSystemEntry::FileSystemEntry;

    COleVariant GetFiles() const;
    COleVariant GetSubFolders() const;
    double GetSize() const;
    bool IsRootFolder() const;
    void Delete();
    void Copy(const automation::Arguments& arguments);
    void Move(const automation::Arguments& arguments);
    COleVariant CreateTextFile(const automation::Arguments& arguments);
};

/// The files, or the folders, in a folder, in the order of their names.
class FolderList final : public automation::Object {
public:
    FolderList(const SYS_String& path, bool ofFolders) : m_Path(path), m_OfFolders(ofFolders) {}

    const automation::Members& GetMembers() const override;

private:
    std::vector<SYS_String> list() const;
    COleVariant make(const SYS_String& path) const;
    LONG GetCount() const;
    COleVariant GetItem(const automation::Arguments& arguments) const;
    IUnknown* NewEnum() const;

    SYS_String m_Path;
    bool m_OfFolders;
};

/// Makes and opens a text file as `CreateTextFile` and `OpenTextFile` do, the arguments behind the
/// path beginning at `first`.
COleVariant CreateText(const SYS_String& path, const automation::Arguments& arguments, UINT first);
COleVariant OpenText(const SYS_String& path, const automation::Arguments& arguments, UINT first);

} // namespace scripting
