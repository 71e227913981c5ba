#pragma once

// How objects of the host leave the engine: an automation face around a `MacroEval` and, through
// it, around everything that it gives. Objects that a macro hands to an automation object get one
// by themselves; hosts make one to pass their objects on, or to answer `GetDispatch` with.

#include <UI_MacroEval.h>

#include <vector>

struct IDispatch;

/// The face of an object: its members, children and default member as macros see them. The same
/// object has one face at a time. Owner: the result carries one reference for the caller. The face
/// holds the object as a Reference does: once the object has gone, every call fails.
///
/// A name is looked up when it is called, since an object may know names that its class does not
/// list: GetIDsOfNames accepts every name, and Invoke answers DISP_E_MEMBERNOTFOUND. What a member
/// reports to the engine comes out as DISP_E_EXCEPTION with its text. An exception that is no
/// error, such as the end of the macro, passes through.
/// Raises: never. Re-enters: calls of the face run host members.
KEL_MCR_API IDispatch* ExposeToAutomation(MacroEval& object);

/// What the member `_NewEnum` of a collection gives: a walk over these objects. A `For Each` over
/// an object that answers `GetDispatch` with its face asks for that member. An object that ends
/// before its turn comes as Null.
KEL_MCR_API UI_MacroVariant WalkOver(const std::vector<MacroEval*>& objects);

/// Whether this is a face; `object` then gets what it stands for, null if that has gone. A face
/// that comes back to the engine turns into the object again.
KEL_MCR_API bool IsExposedObject(IDispatch* dispatch, MacroEval*& object);
