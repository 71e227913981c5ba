#include "Dictionary.h"

#include <AutomationConversions.h>

namespace scripting {

using automation::Arguments;
using automation::Failure;
using kel_ns::SYS_String;

namespace {

SYS_String describe(const VARIANT& key) {
    SYS_String text;
    if (key.vt == VT_DISPATCH || key.vt == VT_UNKNOWN || !automation::ReadText(key, text))
        return "that object";
    return "'" + text + "'";
}

/// The value behind a reference, copied.
COleVariant plainValue(const VARIANT& value) {
    COleVariant copy;
    const HRESULT outcome = VariantCopyInd(&copy, &value);
    if (FAILED(outcome))
        throw Failure(outcome);
    return copy;
}

} // namespace

const automation::Members& Dictionary::GetMembers() const {
    using D = Dictionary;
    static const automation::Members members(
        "Scripting.Dictionary",
        {
            automation::Property<&D::GetItem, &D::SetItem>("Item", 1).Default(),
            automation::Method<&D::Add>("Add", 2),
            automation::Property<&D::Exists>("Exists", 1),
            automation::Property<&D::GetCount>("Count"),
            automation::Property<&D::GetKeys>("Keys"),
            automation::Property<&D::GetItems>("Items"),
            automation::Property<nullptr, &D::SetKey>("Key", 1),
            automation::Method<&D::Remove>("Remove", 1),
            automation::Method<&D::RemoveAll>("RemoveAll"),
            automation::Property<&D::GetCompareMode, &D::SetCompareMode>("CompareMode"),
            automation::Enumerator<&D::NewEnum>(),
        });
    return members;
}

Key Dictionary::keyOf(const Arguments& arguments, UINT index) const {
    if (!arguments.IsGiven(index))
        throw Failure(DISP_E_PARAMNOTOPTIONAL, index);
    Key key;
    if (!Key::Make(arguments[index], m_Table.IgnoresCase(), key))
        throw Failure(DISP_E_TYPEMISMATCH, index);
    return key;
}

KeyTable::Entry& Dictionary::existing(const Arguments& arguments, const Key& key) {
    if (KeyTable::Entry* entry = m_Table.Find(key))
        return *entry;
    throw Failure("There is no key " + describe(arguments[0]));
}

void Dictionary::refuseExisting(const Arguments& arguments, const Key& key, UINT index) {
    if (m_Table.Find(key))
        throw Failure("The key " + describe(arguments[index]) + " is there already");
}

void Dictionary::Add(const Arguments& arguments) {
    const Key key = keyOf(arguments);
    refuseExisting(arguments, key, 0);
    COleVariant item = plainValue(arguments[1]);
    m_Table.Add(arguments[0]).item = std::move(item);
}

bool Dictionary::Exists(const Arguments& arguments) {
    return m_Table.Find(keyOf(arguments)) != nullptr;
}

COleVariant Dictionary::GetItem(const Arguments& arguments) {
    if (const KeyTable::Entry* entry = m_Table.Find(keyOf(arguments)))
        return entry->item;
    m_Table.Add(arguments[0]);
    return COleVariant();
}

void Dictionary::SetItem(const Arguments& arguments) {
    const Key key = keyOf(arguments);
    COleVariant item = plainValue(arguments[1]);
    KeyTable::Entry* entry = m_Table.Find(key);
    if (!entry)
        entry = &m_Table.Add(arguments[0]);
    // The old item goes last: its end may come back to the table.
    std::swap(static_cast<VARIANT&>(item), static_cast<VARIANT&>(entry->item));
}

void Dictionary::SetKey(const Arguments& arguments) {
    const Key from = keyOf(arguments, 0);
    const Key to = keyOf(arguments, 1);
    existing(arguments, from);
    if (from.IsSameAs(to, m_Table.IgnoresCase()))
        return;
    refuseExisting(arguments, to, 1);
    m_Table.Rename(from, arguments[1]);
}

COleVariant Dictionary::GetKeys() const { return automation::MakeList(m_Table.GetKeys()); }

COleVariant Dictionary::GetItems() const { return automation::MakeList(m_Table.GetItems()); }

void Dictionary::Remove(const Arguments& arguments) {
    m_Table.Remove(existing(arguments, keyOf(arguments)));
}

void Dictionary::RemoveAll() { m_Table.Clear(); }

LONG Dictionary::GetCount() const { return static_cast<LONG>(m_Table.GetCount()); }

LONG Dictionary::GetCompareMode() const { return m_Table.IgnoresCase() ? 1 : 0; }

void Dictionary::SetCompareMode(const Arguments& arguments) {
    const LONGLONG mode = arguments.Integer(0);
    if (mode != 0 && mode != 1) {
        SYS_String text = "There is no compare mode ";
        throw Failure(text << mode);
    }
    if (m_Table.GetCount() != 0)
        throw Failure("The compare mode can only be set while the dictionary is empty");
    m_Table.SetIgnoreCase(mode == 1);
}

IUnknown* Dictionary::NewEnum() const { return automation::NewEnumerator(m_Table.GetKeys()); }

} // namespace scripting
