#include "Folders.h"

#include "FileFailure.h"
#include "FileOperations.h"
#include "PathNames.h"
#include "TextStream.h"

#include <SCL_Path.h>

namespace scripting {

using namespace kel_ns;
using automation::Arguments;
using automation::Failure;

namespace {

template <class T> COleVariant ownNew(T* object) {
    return automation::Own(static_cast<IDispatch*>(object));
}

} // namespace

// --- text files --------------------------------------------------------------------------------

COleVariant CreateText(const SYS_String& path, const Arguments& arguments, UINT first) {
    const bool overwrite = arguments.Truth(first, true);
    return TextStream::Open(path, StreamMode::Writing,
                            overwrite ? PlatformCreation::CreateAlways
                                      : PlatformCreation::CreateNew);
}

COleVariant OpenText(const SYS_String& path, const Arguments& arguments, UINT first) {
    const LONGLONG mode = arguments.Integer(first, 1);
    const bool create = arguments.Truth(first + 1, false);
    switch (mode) {
    case 1:
        return TextStream::Open(path, StreamMode::Reading,
                                create ? PlatformCreation::OpenAlways
                                       : PlatformCreation::OpenExisting);
    case 2:
        if (!create && !GetPlatform().Exists(path))
            CheckFile(PlatformStatus::NotFound, path);
        return TextStream::Open(path, StreamMode::Writing, PlatformCreation::CreateAlways);
    case 8:
        return TextStream::Open(path, StreamMode::Appending,
                                create ? PlatformCreation::OpenAlways
                                       : PlatformCreation::OpenExisting);
    default:
        SYS_String text = "A file is opened for reading (1), writing (2) or appending (8), not ";
        throw Failure(text << mode);
    }
}

// --- FileSystemEntry ---------------------------------------------------------------------------

SYS_String FileSystemEntry::GetName() const { return FileNameOf(m_Path); }

COleVariant FileSystemEntry::GetParentFolder() const {
    const SYS_String parent = ParentOf(m_Path);
    return parent.IsEmpty() ? ownNew<IDispatch>(nullptr) : Folder::Make(parent);
}

/// The rows of the table that files and folders share.
struct EntryMembers {
    static automation::Member Path() {
        return automation::Property<&FileSystemEntry::GetPath>("Path").Default();
    }
    static automation::Member Name() {
        return automation::Property<&FileSystemEntry::GetName>("Name");
    }
    static automation::Member ParentFolder() {
        return automation::Property<&FileSystemEntry::GetParentFolder>("ParentFolder");
    }
};

// --- File --------------------------------------------------------------------------------------

COleVariant File::Make(const SYS_String& path) {
    if (!FileExists(path))
        throw Failure("File not found: '" + path + "'");
    return ownNew(new File(SCL::PathNormalize(path, true)));
}

const automation::Members& File::GetMembers() const {
    static const automation::Members members(
        "File", {
                    EntryMembers::Path(),
                    EntryMembers::Name(),
                    EntryMembers::ParentFolder(),
                    automation::Property<&File::GetSize>("Size"),
                    automation::Method<&File::Delete>("Delete", 0, 1),
                    automation::Method<&File::Copy>("Copy", 1, 1),
                    automation::Method<&File::Move>("Move", 1),
                    automation::Method<&File::OpenAsTextStream>("OpenAsTextStream", 0, 2),
                });
    return members;
}

COleVariant File::GetSize() const {
    PlatformFileInfo info;
    CheckFile(GetPlatform().GetInfo(m_Path, info), m_Path);
    if (info.size == static_cast<LONG>(info.size))
        return COleVariant(static_cast<LONG>(info.size));
    return COleVariant(static_cast<LONGLONG>(info.size));
}

void File::Delete() { DeleteFiles(m_Path); }

void File::Copy(const Arguments& arguments) {
    CopyFiles(m_Path, arguments.Text(0), arguments.Truth(1, true));
}

void File::Move(const Arguments& arguments) {
    const SYS_String target = arguments.Text(0);
    const bool into = EndsInSeparator(target) || FolderExists(target);
    MoveFiles(m_Path, target);
    m_Path = SCL::PathNormalize(into ? JoinPath(target, GetName()) : target, true);
}

COleVariant File::OpenAsTextStream(const Arguments& arguments) {
    return OpenText(m_Path, arguments, 0);
}

// --- Folder ------------------------------------------------------------------------------------

COleVariant Folder::Make(const SYS_String& path) {
    if (!FolderExists(path))
        throw Failure("Folder not found: '" + path + "'");
    return ownNew(new Folder(SCL::PathNormalize(path, true)));
}

const automation::Members& Folder::GetMembers() const {
    using F = Folder;
    static const automation::Members members(
        "Folder", {
                      EntryMembers::Path(),
                      EntryMembers::Name(),
                      EntryMembers::ParentFolder(),
                      automation::Property<&F::GetFiles>("Files"),
                      automation::Property<&F::GetSubFolders>("SubFolders"),
                      automation::Property<&F::GetSize>("Size"),
                      automation::Property<&F::IsRootFolder>("IsRootFolder"),
                      automation::Method<&F::Delete>("Delete", 0, 1),
                      automation::Method<&F::Copy>("Copy", 1, 1),
                      automation::Method<&F::Move>("Move", 1),
                      automation::Method<&F::CreateTextFile>("CreateTextFile", 1, 2),
                  });
    return members;
}

COleVariant Folder::GetFiles() const { return ownNew(new FolderList(m_Path, false)); }

COleVariant Folder::GetSubFolders() const { return ownNew(new FolderList(m_Path, true)); }

double Folder::GetSize() const { return SizeOfFolder(m_Path); }

bool Folder::IsRootFolder() const { return ParentOf(m_Path).IsEmpty(); }

void Folder::Delete() { DeleteFolders(m_Path); }

void Folder::Copy(const Arguments& arguments) {
    CopyFolders(m_Path, arguments.Text(0), arguments.Truth(1, true));
}

void Folder::Move(const Arguments& arguments) {
    const SYS_String target = arguments.Text(0);
    const bool into = EndsInSeparator(target) || FolderExists(target);
    MoveFolders(m_Path, target);
    m_Path = SCL::PathNormalize(into ? JoinPath(target, GetName()) : target, true);
}

COleVariant Folder::CreateTextFile(const Arguments& arguments) {
    return CreateText(JoinPath(m_Path, arguments.Text(0)), arguments, 1);
}

// --- FolderList --------------------------------------------------------------------------------

const automation::Members& FolderList::GetMembers() const {
    using F = FolderList;
    static const automation::Members members(
        "FolderList", {
                          automation::Property<&F::GetCount>("Count"),
                          automation::Property<&F::GetItem>("Item", 1).Default(),
                          automation::Enumerator<&F::NewEnum>(),
                      });
    return members;
}

std::vector<SYS_String> FolderList::list() const {
    std::vector<PlatformDirectoryEntry> entries;
    CheckFile(GetPlatform().ListDirectory(m_Path, entries), m_Path);
    std::vector<SYS_String> paths;
    for (const PlatformDirectoryEntry& entry : entries)
        if (entry.isDirectory == m_OfFolders)
            paths.push_back(JoinPath(m_Path, entry.name));
    return paths;
}

COleVariant FolderList::make(const SYS_String& path) const {
    return m_OfFolders ? Folder::Make(path) : File::Make(path);
}

LONG FolderList::GetCount() const { return static_cast<LONG>(list().size()); }

COleVariant FolderList::GetItem(const Arguments& arguments) const {
    return make(JoinPath(m_Path, arguments.Text(0)));
}

IUnknown* FolderList::NewEnum() const {
    std::vector<COleVariant> items;
    for (const SYS_String& path : list())
        if (m_OfFolders ? FolderExists(path) : FileExists(path)) // links may lead nowhere
            items.push_back(make(path));
    return automation::NewEnumerator(std::move(items));
}

} // namespace scripting
