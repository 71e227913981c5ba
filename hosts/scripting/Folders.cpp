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

PlatformFileInfo infoOf(const SYS_String& path) {
    PlatformFileInfo info;
    CheckFile(GetPlatform().GetInfo(path, info), path);
    return info;
}

} // namespace

// --- text files --------------------------------------------------------------------------------

COleVariant CreateText(const SYS_String& path, const Arguments& arguments, UINT first) {
    const bool overwrite = arguments.Truth(first, true);
    const bool isWide = arguments.Truth(first + 1, false);
    return TextStream::Open(path, StreamMode::Writing,
                            overwrite ? PlatformCreation::CreateAlways
                                      : PlatformCreation::CreateNew,
                            isWide ? TextFormat::Wide : TextFormat::Bytes);
}

TextFormat FormatIn(const Arguments& arguments, UINT index, const SYS_String& path) {
    const LONGLONG format = arguments.Integer(index, 0);
    switch (format) {
    case 0:
        return TextFormat::Bytes;
    case -1:
        return TextFormat::Wide;
    case -2:
        return TextStream::FormatOf(path);
    default:
        SYS_String text = "The format of a text is 0 (bytes), -1 (16 bits) or -2 (as it is), not ";
        throw Failure(text << format);
    }
}

COleVariant OpenText(const SYS_String& path, LONGLONG mode, bool create, TextFormat format) {
    if (mode == 2 && !create && !GetPlatform().Exists(path))
        CheckFile(PlatformStatus::NotFound, path);
    const PlatformCreation creation =
        create ? PlatformCreation::OpenAlways : PlatformCreation::OpenExisting;
    switch (mode) {
    case 1:
        return TextStream::Open(path, StreamMode::Reading, creation, format);
    case 2:
        return TextStream::Open(path, StreamMode::Writing, PlatformCreation::CreateAlways, format);
    case 8:
        return TextStream::Open(path, StreamMode::Appending, creation, format);
    default:
        SYS_String text = "A file is opened for reading (1), writing (2) or appending (8), not ";
        throw Failure(text << mode);
    }
}

// --- FileSystemEntry ---------------------------------------------------------------------------

SYS_String FileSystemEntry::GetName() const { return FileNameOf(m_Path); }

void FileSystemEntry::SetName(const Arguments& arguments) {
    const SYS_String name = arguments.Text(0);
    if (name.IsEmpty() || name.View().find_first_of("/\\") != std::string_view::npos)
        CheckFile(PlatformStatus::Invalid, name);
    const SYS_String target = JoinPath(ParentOf(m_Path), name);
    if (target == m_Path)
        return;
    if (GetPlatform().Exists(target))
        CheckFile(PlatformStatus::AlreadyExists, target);
    moveTo(target);
    m_Path = target;
}

void FileSystemEntry::Move(const Arguments& arguments) {
    const SYS_String target = arguments.Text(0);
    const bool into = EndsInSeparator(target) || FolderExists(target);
    moveTo(target);
    m_Path = SCL::PathNormalize(into ? JoinPath(target, GetName()) : target, true);
}

SYS_String FileSystemEntry::GetDateCreated() const { return DateOf(infoOf(m_Path).created); }

SYS_String FileSystemEntry::GetDateLastAccessed() const { return DateOf(infoOf(m_Path).accessed); }

SYS_String FileSystemEntry::GetDateLastModified() const { return DateOf(infoOf(m_Path).modified); }

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
        return automation::Property<&FileSystemEntry::GetName, &FileSystemEntry::SetName>("Name");
    }
    static automation::Member Move() {
        return automation::Method<&FileSystemEntry::Move>("Move", 1);
    }
    static automation::Member DateCreated() {
        return automation::Property<&FileSystemEntry::GetDateCreated>("DateCreated");
    }
    static automation::Member DateLastAccessed() {
        return automation::Property<&FileSystemEntry::GetDateLastAccessed>("DateLastAccessed");
    }
    static automation::Member DateLastModified() {
        return automation::Property<&FileSystemEntry::GetDateLastModified>("DateLastModified");
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
                    EntryMembers::DateCreated(),
                    EntryMembers::DateLastAccessed(),
                    EntryMembers::DateLastModified(),
                    automation::Property<&File::GetSize>("Size"),
                    automation::Method<&File::Delete>("Delete", 0, 1),
                    automation::Method<&File::Copy>("Copy", 1, 1),
                    EntryMembers::Move(),
                    automation::Method<&File::OpenAsTextStream>("OpenAsTextStream", 0, 2),
                });
    return members;
}

COleVariant File::GetSize() const {
    const PlatformFileInfo info = infoOf(m_Path);
    if (info.size == static_cast<LONG>(info.size))
        return COleVariant(static_cast<LONG>(info.size));
    return COleVariant(static_cast<LONGLONG>(info.size));
}

void File::Delete() { DeleteFiles(m_Path, Match::Name); }

void File::Copy(const Arguments& arguments) {
    CopyFiles(m_Path, arguments.Text(0), arguments.Truth(1, true), Match::Name);
}

void File::moveTo(const SYS_String& target) { MoveFiles(m_Path, target, Match::Name); }

COleVariant File::OpenAsTextStream(const Arguments& arguments) {
    return OpenText(m_Path, arguments.Integer(0, 1), false, FormatIn(arguments, 1, m_Path));
}

// --- Folder ------------------------------------------------------------------------------------

COleVariant Folder::Make(const SYS_String& path) {
    if (!FolderExists(path))
        throw Failure("Folder not found: '" + path + "'");
    return ownNew(new Folder(SCL::PathNormalize(path, true)));
}

COleVariant Folder::Create(const SYS_String& path) {
    CheckFile(GetPlatform().MakeDirectory(path), path);
    return Make(path);
}

const automation::Members& Folder::GetMembers() const {
    using F = Folder;
    static const automation::Members members(
        "Folder", {
                      EntryMembers::Path(),
                      EntryMembers::Name(),
                      EntryMembers::ParentFolder(),
                      EntryMembers::DateCreated(),
                      EntryMembers::DateLastAccessed(),
                      EntryMembers::DateLastModified(),
                      automation::Property<&F::GetFiles>("Files"),
                      automation::Property<&F::GetSubFolders>("SubFolders"),
                      automation::Property<&F::GetSize>("Size"),
                      automation::Property<&F::IsRootFolder>("IsRootFolder"),
                      automation::Method<&F::Delete>("Delete", 0, 1),
                      automation::Method<&F::Copy>("Copy", 1, 1),
                      EntryMembers::Move(),
                      automation::Method<&F::CreateTextFile>("CreateTextFile", 1, 2),
                  });
    return members;
}

COleVariant Folder::GetFiles() const { return ownNew(new FolderList(m_Path, false)); }

COleVariant Folder::GetSubFolders() const { return ownNew(new FolderList(m_Path, true)); }

double Folder::GetSize() const { return SizeOfFolder(m_Path); }

bool Folder::IsRootFolder() const { return ParentOf(m_Path).IsEmpty(); }

void Folder::Delete() { DeleteFolders(m_Path, Match::Name); }

void Folder::Copy(const Arguments& arguments) {
    CopyFolders(m_Path, arguments.Text(0), arguments.Truth(1, true), Match::Name);
}

void Folder::moveTo(const SYS_String& target) { MoveFolders(m_Path, target, Match::Name); }

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
                          automation::Method<&F::Add>("Add", 1),
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

COleVariant FolderList::Add(const Arguments& arguments) const {
    if (!m_OfFolders)
        throw Failure(DISP_E_MEMBERNOTFOUND);
    return Folder::Create(JoinPath(m_Path, arguments.Text(0)));
}

IUnknown* FolderList::NewEnum() const {
    std::vector<COleVariant> items;
    for (const SYS_String& path : list())
        if (m_OfFolders ? FolderExists(path) : FileExists(path)) // links may lead nowhere
            items.push_back(make(path));
    return automation::NewEnumerator(std::move(items));
}

} // namespace scripting
