#pragma once

#include <AutomationObject.h>

#include "KeyTable.h"

namespace scripting {

/// Items under keys, kept in the order in which they were added.
class Dictionary final : public automation::Object {
public:
    const automation::Members& GetMembers() const override;

private:
    Key keyOf(const automation::Arguments& arguments, UINT index = 0) const;
    KeyTable::Entry& existing(const automation::Arguments& arguments, const Key& key);
    void refuseExisting(const automation::Arguments& arguments, const Key& key, UINT index);

    void Add(const automation::Arguments& arguments);
    bool Exists(const automation::Arguments& arguments);
    /// Reading an unknown key adds it with an empty item.
    COleVariant GetItem(const automation::Arguments& arguments);
    void SetItem(const automation::Arguments& arguments);
    void SetKey(const automation::Arguments& arguments);
    COleVariant GetKeys() const;
    COleVariant GetItems() const;
    void Remove(const automation::Arguments& arguments);
    void RemoveAll();
    LONG GetCount() const;
    LONG GetCompareMode() const;
    void SetCompareMode(const automation::Arguments& arguments);
    IUnknown* NewEnum() const;

    KeyTable m_Table;
};

} // namespace scripting
