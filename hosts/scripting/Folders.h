#pragma once

#include <AutomationObject.h>

#include <vector>

#include "TextStream.h"

namespace scripting {

using kel_ns::SYS_String;

/// What files and folders have in common. They are known by their absolute path and look at the
/// disk anew with every question.
class FileSystemEntry : public automation::Object {
protected:
    explicit FileSystemEntry(const SYS_String& path) : m_Path(path) {}

    const SYS_String& GetPath() const { return m_Path; }
    SYS_String GetName() const;
    /// Renames it where it stands.
    void SetName(const automation::Arguments& arguments);
    void Move(const automation::Arguments& arguments);
    // Local time as "2024-05-01 13:45:00", so that the later text is the greater one.
    SYS_String GetDateCreated() const;
    SYS_String GetDateLastAccessed() const;
    SYS_String GetDateLastModified() const;
    /// Nothing for the root.
    COleVariant GetParentFolder() const;

    virtual void moveTo(const SYS_String& target) = 0;

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

    void moveTo(const SYS_String& target) override;

    COleVariant GetSize() const;
    void Delete();
    void Copy(const automation::Arguments& arguments);
    COleVariant OpenAsTextStream(const automation::Arguments& arguments);
};

class Folder final : public FileSystemEntry {
public:
    /// Raises: Failure if there is no such folder.
    static COleVariant Make(const SYS_String& path);
    /// Makes one on the disk. Raises: Failure.
    static COleVariant Create(const SYS_String& path);

    const automation::Members& GetMembers() const override;

private:
    using FileSystemEntry::FileSystemEntry;

    void moveTo(const SYS_String& target) override;

    COleVariant GetFiles() const;
    COleVariant GetSubFolders() const;
    double GetSize() const;
    bool IsRootFolder() const;
    void Delete();
    void Copy(const automation::Arguments& arguments);
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
    /// Makes a folder. Raises: DISP_E_MEMBERNOTFOUND in a list of files.
    COleVariant Add(const automation::Arguments& arguments) const;
    IUnknown* NewEnum() const;

    SYS_String m_Path;
    bool m_OfFolders;
};

/// Makes a text file as `CreateTextFile` does, the arguments behind the path beginning at `first`.
COleVariant CreateText(const SYS_String& path, const automation::Arguments& arguments, UINT first);
/// Opens one for reading (1), writing (2) or appending (8).
COleVariant OpenText(const SYS_String& path, LONGLONG mode, bool create, TextFormat format);
/// The format that an argument asks for: bytes (0), 16 bits (-1), or as the file has it (-2).
TextFormat FormatIn(const automation::Arguments& arguments, UINT index, const SYS_String& path);

} // namespace scripting
