#pragma once

// The value of the macro language, and the base class of every object that macros can see.
//
// One class covers variables, temporaries, arguments and results. What a value holds is told by
// its kind (`VariantValueType`); fields that belong to another kind may be stale and mean nothing.
// Rarely used parts (array elements, stored arguments, a counted object) are made on demand, so
// that a value stays at 64 bytes and building or destroying a plain one touches no other memory.
//
// Errors go to the current processor as a MacroException with the code that is named. Without a
// processor they are an assertion, and the result is Empty or 0.

#include <SCC_Array.h>
#include <SCC_SafePointer.h>
#include <SCL_Types.h>
#include <SYS_String.h>

#include <concepts>
#include <cstddef>
#include <type_traits>

struct IDispatch;
struct IUnknown;
struct tagVARIANT;
class COleVariant;
struct _GUID;
class UI_MacroVariant;
class UI_MacroVariantParam;
class cMacroAppClass;

namespace kel_ns {
class SCC_Variant;
}
namespace ScriptDebugger {
class iApplicationClass;
}

using namespace kel_ns;

/// The kind of a value. The order of the numbers decides which operand's kind an operator follows.
enum VariantValueType : unsigned char {
    vvtEmpty = 1,
    vvtObject = 2,   ///< an automation object, or a call of one of its members still to be made
    vvtFunction = 3, ///< a built-in function or a procedure, with its arguments
    vvtString = 4,
    vvtInteger = 5, ///< 64 bits
    vvtDouble = 6,
    vvtBoolean = 7,   ///< -1 or 0
    vvtReference = 8, ///< to another value, which it does not keep alive: then, and if null, Null
    vvtArray = 9,
    vvtMissing = 10, ///< the place of an argument that was left out
    vvtHandle = 11,  ///< a pointer of the host, of which 32 bits count
    vvtScript = 12,  ///< a file to be run
    vvtUnknown = 13  ///< a counted object without automation
};

/// How an array came into a value; it decides what may be assigned to the value later.
enum VariantArrayType : int {
    ArrayUnset = 0,   ///< made by `ReDim` alone: the variable takes anything
    ArrayValue = 1,   ///< came by assignment: takes anything
    ArrayDynamic = 2, ///< declared without bounds: takes arrays
    ArrayFixed = 3    ///< declared with bounds: takes nothing as a whole
};

/// Which default member an object may yield: any, a property only, or a method only.
enum EDerefFlag { derefAny = 0, derefPropertyGet = 1, derefMethod = 2 };

/// A built-in function: argument count and that many consecutive arguments (null when 0).
using MacroFunctionHandler = UI_MacroVariant (*)(int argc, UI_MacroVariant* argv);

/// One dimension of a declaration; both bounds belong to the array.
struct _ArraySubscript {
    int lower = 0;
    int upper = 0;
};

/// A name with the bounds that a `ReDim` gives it. The subscripts are borrowed.
struct _ArrayDecl {
    SYS_String name;
    SCC_Array<_ArraySubscript>* subscripts = nullptr;
};

/// Elements with a lower bound. Copies share one buffer until one of them is written to.
class UI_MacroArray : public SCC_Array<UI_MacroVariant> {
public:
    UI_MacroArray() = default;
    /// Elements lower..upper, all Empty; no elements if upper is below lower.
    KEL_MCR_API UI_MacroArray(int lower, int upper);
    UI_MacroArray(const UI_MacroArray&) = default;
    UI_MacroArray(UI_MacroArray&& other) noexcept;
    UI_MacroArray& operator=(const UI_MacroArray&) = default;
    UI_MacroArray& operator=(UI_MacroArray&& other) noexcept;

    int GetLowerBound() const { return m_LowerBound; }
    void SetLowerBound(int lower) { m_LowerBound = lower; }
    /// The last index: -1 for an empty array with lower bound 0.
    KEL_MCR_API int GetUpperBound() const;
    /// 1 if the index lies between the bounds, else 0.
    KEL_MCR_API int InBounds(int index) const;
    // What makes an array larger raises 20 ("out of memory") beyond the limit of elements.
    /// Resizes to n elements; 0 or less changes nothing.
    KEL_MCR_API void ChangeCount(int n);
    /// Resizes to lower..upper, keeping elements by their distance from the lower bound; with upper
    /// below lower the elements stay and only the lower bound changes.
    KEL_MCR_API void ChangeBounds(int lower, int upper);
    /// No elements, lower bound 0.
    KEL_MCR_API void Clear();
    /// The writable element of an index in bounds terms. Separates a shared buffer and extends
    /// the array for a high index; below the lower bound it asserts and gives a scratch element.
    KEL_MCR_API UI_MacroVariant& operator[](int index) const;
    /// Adds a copy at the end; in a sorted array, at its place.
    KEL_MCR_API void Append(const UI_MacroVariant& value);
    /// Element 0, null when empty. The writable form separates a shared buffer.
    const UI_MacroVariant* GetData() const { return Data(); }
    UI_MacroVariant* GetData() { return IsEmpty() ? nullptr : WritableData(); }
    /// Not for use: asserts.
    KEL_MCR_API void CheckArray(int index) const;

private:
    int m_LowerBound = 0;
};

class KEL_MCR_API UI_MacroVariant : public SCC_SafeBuffer {
public:
    // Construction. Implicit on purpose: hosts pass plain values where the engine wants a value.
    UI_MacroVariant() noexcept;
    UI_MacroVariant(int value) noexcept;
    UI_MacroVariant(long value) noexcept;
    UI_MacroVariant(__int64 value) noexcept;
    UI_MacroVariant(unsigned value) noexcept;
    UI_MacroVariant(unsigned long value) noexcept;
    UI_MacroVariant(unsigned long long value) noexcept;
    /// A Boolean; no pointer turns into one.
    template <std::same_as<bool> T> UI_MacroVariant(T value) noexcept : m_Type(vvtBoolean) {
        m_Payload.integer = value ? -1 : 0;
    }
    UI_MacroVariant(double value) noexcept;
    /// A Handle.
    UI_MacroVariant(void* handle) noexcept;
    UI_MacroVariant(const SYS_String& text);
    UI_MacroVariant(const char* text);
    /// A Reference to the target; null gives Null.
    UI_MacroVariant(UI_MacroVariant* const target);
    /// An Object with a counted reference; null gives Nothing.
    UI_MacroVariant(IDispatch* object);
    /// An Unknown with a counted reference.
    UI_MacroVariant(IUnknown* object);
    UI_MacroVariant(const SCC_Variant& value);
    UI_MacroVariant(MacroFunctionHandler handler) noexcept;
    /// An array of one dimension that shares the elements.
    UI_MacroVariant(const UI_MacroArray& array);
    UI_MacroVariant(const UI_MacroVariant& other);
    UI_MacroVariant(UI_MacroVariant&& other) noexcept;
    UI_MacroVariant(std::nullptr_t) = delete;
    ~UI_MacroVariant() override;

    // Virtual operations.
    /// The target of a Reference or the owner of a Function; null if there is none.
    virtual UI_MacroVariant* operator->() const;
    /// The element of an index between the bounds of the outermost level. The writable form
    /// separates a shared buffer. Raises: 29, also for what is no array.
    virtual UI_MacroVariant& operator[](int index);
    const UI_MacroVariant& operator[](int index) const;
    /// The raw copy: a Reference stays a Reference. Raises: 31 on a fixed or dynamic array.
    virtual UI_MacroVariant& operator=(const UI_MacroVariant& src);
    /// The assignment of the language: copies what the source reads as, into the target of a
    /// Reference. Nothing happens on a constant. Raises: 31 on a fixed array, and for all but
    /// arrays on a dynamic one; 42 for an array nested too deep; unless a variable holds it,
    /// "Object doesn't support this property or method" on an object. Where a Reference leads to
    /// Null, the Reference itself takes the value. Re-enters: host objects.
    virtual void Assign(const UI_MacroVariant& src);
    /// The statement `Set`: binds an object. Raises: 43 for the target itself, 31 on a fixed or
    /// dynamic array, "Object cannot be referenced" where nothing can be bound. Re-enters: host
    /// objects.
    virtual void SetObjectRef(const UI_MacroVariant& src);
    /// Whether that member is a property and no method; false for all but objects of the host.
    virtual bool IsPropertyGet(const char* name);
    /// Member access, call, or index, by kind; a null name applies the arguments to the value, and
    /// null arguments are those that it stores. A member of an automation object becomes a pending
    /// call, an element a Reference to it. Raises: any. Re-enters: host members, procedures.
    virtual UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc);
    /// The class of an object of the host; null for all else.
    virtual const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const;
    /// Only a UI_MacroVariantParam can be constant; others take no notice.
    virtual void SetConstant(bool constant);
    virtual bool isConstant() const;
    /// The value to write through, null for a dead target or a constant.
    virtual UI_MacroVariant* GetLVal() const;
    /// The value to read, null for Null.
    virtual UI_MacroVariant* GetRVal() const;
    /// Makes the value to read current (properties are read here). Re-enters: host objects.
    virtual void InitRVal();
    /// The text that debuggers show.
    virtual SYS_String DescribeVar() const;

    static cMacroAppClass* GetMacroClass() { return nullptr; }

    // The three constants; writes to them do nothing.
    static UI_MacroVariantParam& Empty();
    static UI_MacroVariantParam& Null();
    static UI_MacroVariantParam& Nothing();

    // Accessors. They look at this value alone and follow no Reference.
    VariantValueType GetType() const { return m_Type; }
    /// Changes the kind and no other field.
    void SetType(VariantValueType type) { m_Type = type; }
    bool IsEmpty() const { return m_Type == vvtEmpty; }
    bool IsHandle() const { return m_Type == vvtHandle; }
    bool IsExecScript() const { return m_Type == vvtScript; }
    /// The raw payload, whatever the kind.
    __int64 GetIntVal() const { return m_Payload.integer; }
    /// Of an Object: how the pending call is to be made; 0 without one. Its member beside it.
    int GetWFlags() const { return static_cast<int>(m_FlagsOrDims & 0xFFFFu); }
    int GetDispId() const { return m_IdOrArrayType; }
    /// These two of an Array. Without bounds it has no dimensions.
    VariantArrayType GetArrayType() const { return static_cast<VariantArrayType>(m_IdOrArrayType); }
    int GetArrNumDims() const { return static_cast<int>(m_FlagsOrDims); }
    /// The elements of the outermost level, or stored arguments. The writable form makes an empty
    /// array if there is none, and leaves the kind alone.
    UI_MacroArray& Arrval();
    const UI_MacroArray& Arrval() const;
    /// The target of a Reference, the owner of a Function; null if there is none, or it has gone.
    UI_MacroVariant* getRefVal() const { return m_Target; }
    explicit operator UI_MacroVariant*() const { return m_Target; }
    /// These three assert that the kind is theirs.
    const SYS_String& GetStringVal() const;
    const SYS_String& GetExecScriptVal() const;
    /// The low 32 bits, sign-extended.
    void* GetHandle() const;
    /// The pointer of an Object (not counted for the caller), null for other kinds.
    IDispatch* GetDispatchVal() const;
    /// The counted object of an Unknown or Object; not counted for the caller.
    IUnknown* GetUnknownVal() const;
    /// Of a Function; null for a procedure of a macro.
    MacroFunctionHandler GetFunctionHandler() const { return m_Payload.handler; }
    /// The name of a Function value.
    const SYS_String& GetFunctionName() const { return m_Text; }

    // These change the kind and its field. What another kind holds stays until Clear.
    void SetIntVal(__int64 value);
    void SetBoolVal(bool value);
    void SetRealVal(double value);
    void SetStringVal(const SYS_String& text);
    void SetExecScriptVal(const SYS_String& text);
    void SetHandleVal(void* handle);
    void SetFunctionRefVal(const SYS_String& name, UI_MacroVariant* owner);
    /// A Reference; null is Null. The value itself is an assertion and changes nothing.
    void SetLValueVal(UI_MacroVariant* const target);
    /// `addRef` false leaves the object uncounted: the host keeps it alive.
    void SetObjectVal(IDispatch* object, bool addRef);
    /// The same without changing the kind.
    void attachDispatchVal(IDispatch* object, bool addRef);
    void SetUnknownObjectVal(IUnknown* object);
    void SetVariantVal(const SCC_Variant& value);
    /// Turns a pending call into a property read; false unless this is an Object.
    bool SetToPropertyGet();
    /// Back to Empty; releases everything. Re-enters: an object that ends by it.
    void Clear();

    /// Follows References to the first other kind; null when a target is null. Re-enters: the
    /// getter of a property that nobody has read.
    UI_MacroVariant* getBody() const;
    /// The body if it is an object, else null. An Unknown counts only if it is allowed.
    UI_MacroVariant* getObject(bool allowUnknown) const;
    /// The value of a default member, or `source` itself. Called on a temporary that holds it.
    /// Raises: any. Re-enters: host members.
    const UI_MacroVariant& derefObject(const UI_MacroVariant& source);
    /// The same in place.
    const UI_MacroVariant& derefThis();
    /// Applies arguments to an object's default member, a function or an array; false for what
    /// takes none. Raises: any. Re-enters: host members.
    bool evaluateDereference(UI_MacroVariant* args, int argc, UI_MacroVariant& out,
                             EDerefFlag flag);
    /// Same object: one `MacroEval`, or one automation identity. Nothing equals Nothing.
    bool IsObjectSame(UI_MacroVariant& other);

    // Arrays. Dimensions count from 1, and the last one is the outermost level. 0 for a dimension
    // that does not exist, or of what is no array.
    int GetArraySize(int dim) const;
    int GetArrayLowerBound(int dim) const;
    int GetArrayUpperBound(int dim) const;
    /// Sets an index for each dimension, the outermost level first, to its lower bound. Owner: the
    /// caller; GetArrNumDims places.
    void resetMultiArrayInx(long* inx);
    /// The element at `inx`, which then moves on, the innermost level fastest; null when the walk
    /// is over. Separates shared buffers.
    UI_MacroVariant* nextMultiArrayVal(long* inx);

    // Conversions. All but the private forms read objects through their default member. Numbers
    // raise 23 for a Function, Array, Missing or Script; an object that has gone is 0 or "".
    // Re-enters: host objects.
    /// Rounded half away from zero; beyond 64 bits the smallest number.
    explicit operator __int64() const;
    /// These two give the low 32 bits, sign-extended.
    explicit operator int() const;
    explicit operator long() const;
    /// Whether the integer is not 0.
    explicit operator bool() const;
    explicit operator double() const;
    /// Numbers as macros print them; "" for what has no text.
    explicit operator SYS_String() const;
    explicit operator SCC_Variant() const;
    /// Raises: 23 for Empty, Function, Array, Missing and Script.
    void* ToHandle() const;
    /// The text of a String; "" for any other kind.
    SYS_String ToString() const;
    /// The integer; the fallback for Empty, Missing and Null.
    int ToInt(int fallback) const;
    bool convToBool() const;

    // Operators of the language; the kinds of the operands decide, as in the language guide. `^` is
    // Xor and Power the power, `|` and `&` are Or and And, `~` is Not by bits, `/` gives a Double,
    // `%` and IntDiv work on integers. Raise 14 for Null where it has no meaning, 23 or 34 for
    // kinds that do not fit, 20 for a whole division by 0, 18, 19, 21 and 22 for a power. Re-enter:
    // host objects.
    UI_MacroVariant operator+(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator-(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator*(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator/(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator%(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator^(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator|(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator&(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator&&(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator||(const UI_MacroVariant& rhs) const;
    // Literals on the right would otherwise also suit the operators of the language of the host.
    template <class T>
    requires std::is_arithmetic_v<T> UI_MacroVariant operator&&(T rhs) const {
        return *this && UI_MacroVariant(rhs);
    }
    template <class T>
    requires std::is_arithmetic_v<T> UI_MacroVariant operator||(T rhs) const {
        return *this || UI_MacroVariant(rhs);
    }
    UI_MacroVariant operator==(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator!=(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator<(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator<=(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator>(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator>=(const UI_MacroVariant& rhs) const;
    UI_MacroVariant operator-() const;
    UI_MacroVariant operator~() const;
    UI_MacroVariant operator!() const;
    UI_MacroVariant IntDiv(const UI_MacroVariant& rhs) const;
    UI_MacroVariant Power(const UI_MacroVariant& rhs) const;
    VariantValueType GetSuperiorType(VariantValueType other) const;

    // Automation. The forms that give int: 1, and the value is the object, counted; 0, and it is as
    // it was. Re-enter: factories and objects.
    /// Takes a copy of the value, with a count of an object.
    void init(const tagVARIANT& value);
    void Init(const COleVariant& value);
    explicit operator COleVariant() const;
    int CreateObject(const char* progId);
    int CreateObject(const _GUID& classId);
    /// With a server other than "" always 0 here.
    int CreateObject(const char* progId, const char* server);
    /// The object that is registered as active.
    int GetActiveObject(const char* progId);
    int GetActiveObject(const _GUID& classId);
    /// The object running under a name; without a name, a new one of the class.
    int GetObject(const char* path, const char* className);

    /// Which of the engine's own classes this value is; lets the engine avoid casts at run time.
    enum class Role : unsigned char { Plain, Variable, Element, Object };
    Role GetRole() const { return m_Role; }
    bool IsMacroEval() const { return m_Role == Role::Object; }

    /// Takes over everything from `src`, which becomes Empty. Only for values of this very class.
    void Take(UI_MacroVariant& src) noexcept;

protected:
    explicit UI_MacroVariant(Role role) noexcept;

    /// Stores the arguments of a pending call.
    void copyAgr(UI_MacroVariant* args, int n);
    static UI_MacroVariant EvaluateArray(UI_MacroVariant* var, UI_MacroVariant* args, int argc);

    // The kind alone decides; objects and References are not read through a default member.
    SYS_String convToString() const;
    __int64 convToLongLong() const;
    double convToDouble() const;
    void* convToHandle() const;

    bool m_Constant = false; // belongs to UI_MacroVariantParam, stands in padding
    bool m_IsProxy = false;  // stands for a property: `GetRVal` reads it first

private:
    friend class MacroVariantArraySupport;
    friend class UI_MacroVariantParam;
    friend class UI_MacroVariantItemRef;
    friend class MacroSupport;
    friend struct MacroVariantAccess;

    struct Parts;
    struct Operators;
    union Payload {
        __int64 integer;
        double real;
        void* pointer;
        IDispatch* dispatch;
        MacroFunctionHandler handler;
    };

    Parts& parts();
    static void releaseParts(Parts* mine) noexcept;
    void copyFrom(const UI_MacroVariant& src);
    void moveFrom(UI_MacroVariant& src) noexcept;
    void clearRest();
    bool hasRest() const;
    bool holdsShapedArray() const {
        return m_Type == vvtArray &&
               (m_IdOrArrayType == ArrayFixed || m_IdOrArrayType == ArrayDynamic);
    }
    void setCounted(IUnknown* object);
    void dropElementCopies();
    void invokeObjectIfNeeded();
    void putObjectVal(const UI_MacroVariant& value, bool byRef);
    SYS_String describeKind() const;
    const UI_MacroArray* dimension(int dim) const;
    static void setBounds(const _ArraySubscript* subs, UI_MacroVariant& v);

    Role m_Role = Role::Plain;
    VariantValueType m_Type = vvtEmpty;
    unsigned m_FlagsOrDims = 0; // invoke flags of an Object, dimensions of an Array
    int m_IdOrArrayType = 0;    // dispatch id of an Object, VariantArrayType of an Array
    Payload m_Payload{0};
    SYS_String m_Text;
    SCC_SafePointer<UI_MacroVariant> m_Target;
    Parts* m_Parts = nullptr;
};

/// A variable, parameter or constant. Bound to a Reference it becomes an alias of the target.
class KEL_MCR_API UI_MacroVariantParam : public UI_MacroVariant {
public:
    /// Empty.
    explicit UI_MacroVariantParam(bool constant);
    UI_MacroVariantParam(const UI_MacroVariant& value, bool constant);
    /// Copies the value; the copy is no constant.
    UI_MacroVariantParam(const UI_MacroVariantParam& other);
    ~UI_MacroVariantParam() override;

    using UI_MacroVariant::operator=;
    UI_MacroVariantParam& operator=(const UI_MacroVariant& src) override;
    UI_MacroVariantParam& operator=(const UI_MacroVariantParam& src);
    void Assign(const UI_MacroVariant& src) override;
    void SetObjectRef(const UI_MacroVariant& src) override;
    void SetConstant(bool constant) override;
    bool isConstant() const override;
    UI_MacroVariant* GetLVal() const override;
    UI_MacroVariant* GetRVal() const override;

private:
    UI_MacroVariant* reduce();
    UI_MacroVariant* writeTarget();
    static bool takeScalar(UI_MacroVariant& t, const UI_MacroVariant& value);
};

/// Stands for an array element: reads and writes reach the element while it lives. Made on the
/// heap and deleted with the last Reference to it.
class UI_MacroVariantItemRef final : public UI_MacroVariant {
public:
    explicit UI_MacroVariantItemRef(UI_MacroVariant* element);
    ~UI_MacroVariantItemRef() override;

    using UI_MacroVariant::operator=;
    UI_MacroVariantItemRef& operator=(const UI_MacroVariant& src) override;
    void Assign(const UI_MacroVariant& src) override;
    void SetObjectRef(const UI_MacroVariant& src) override;
    void InitRVal() override;
    UI_MacroVariant* GetRVal() const override;

    UI_MacroVariant* GetElement() const { return m_Element; }
    /// Whether any element of any array is referred to at the moment.
    static bool AnyLive() { return s_LiveCount > 0; }

    static void* operator new(std::size_t size);
    static void operator delete(void* cell, std::size_t size);

private:
    static int s_LiveCount;
    void refresh();
    UI_MacroVariant* clearedElement();

    SCC_SafePointer<UI_MacroVariant> m_Element;
};

/// Makes and reshapes arrays in values, for the declaration statements and for hosts.
class KEL_MCR_API MacroVariantArraySupport {
public:
    /// Makes the variable an array of these bounds, subscript k being dimension k + 1: fixed,
    /// unless it is dynamic or has no bounds. Raises: 20 ("out of memory") beyond the limit of
    /// elements.
    static void CreateArray(UI_MacroVariant* var, SCC_Array<_ArraySubscript>& subscripts,
                            bool dynamic);
    /// Gives an array new bounds, or makes one. Raises: 32 on a fixed array, 33 if the data cannot
    /// be preserved, 20 as above.
    static void ReCreateArray(UI_MacroVariant* var, SCC_Array<_ArraySubscript>& subscripts,
                              bool preserve);
    /// Gives every nested level of an array a buffer of its own. Raises: 42 when nested too deep.
    static void SeparateBuffers(UI_MacroVariant& var);

private:
    static bool IsPreservable(UI_MacroVariant& var, SCC_Array<_ArraySubscript>& subscripts);
    static void CopyDataItems(UI_MacroArray& source, UI_MacroVariant& var);
};

static_assert(sizeof(UI_MacroVariant) <= 64, "the value is copied everywhere: keep it compact");

inline UI_MacroVariant::UI_MacroVariant() noexcept = default;
inline UI_MacroVariant::UI_MacroVariant(Role role) noexcept : m_Role(role) {}
inline UI_MacroVariant::UI_MacroVariant(int value) noexcept
    : m_Type(vvtInteger), m_Payload{value} {}
inline UI_MacroVariant::UI_MacroVariant(long value) noexcept
    : m_Type(vvtInteger), m_Payload{value} {}
inline UI_MacroVariant::UI_MacroVariant(__int64 value) noexcept
    : m_Type(vvtInteger), m_Payload{value} {}
inline UI_MacroVariant::UI_MacroVariant(unsigned value) noexcept
    : m_Type(vvtInteger), m_Payload{value} {}
inline UI_MacroVariant::UI_MacroVariant(unsigned long value) noexcept
    : m_Type(vvtInteger), m_Payload{static_cast<__int64>(value)} {}
inline UI_MacroVariant::UI_MacroVariant(unsigned long long value) noexcept
    : m_Type(vvtInteger), m_Payload{static_cast<__int64>(value)} {}
inline UI_MacroVariant::UI_MacroVariant(double value) noexcept : m_Type(vvtDouble) {
    m_Payload.real = value;
}

inline bool UI_MacroVariant::hasRest() const {
    return m_Parts || m_Target.IsSet() || !m_Text.IsEmpty();
}

inline UI_MacroVariant::~UI_MacroVariant() {
    if (m_Parts)
        releaseParts(m_Parts);
}

inline void UI_MacroVariant::Clear() {
    if (hasRest()) {
        clearRest(); // may end this value
        return;
    }
    m_Type = vvtEmpty;
    m_Payload.integer = 0;
    m_FlagsOrDims = 0;
    m_IdOrArrayType = 0;
}
