#include "runtime.h"

#include <Block.h>
#include <objc/objc.h>
#include <unwind.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <utility>
#include <vector>

// Names that begin with an underscore or "objc_" are the compiler's.

#define SAME_AS(other) __attribute__((alias(#other)))

extern "C" {
extern void* _NSConcreteStackBlock[32];
extern void* _NSConcreteMallocBlock[32];
extern void* _NSConcreteGlobalBlock[32];
_Unwind_Reason_Code __gxx_personality_v0(int, _Unwind_Action, _Unwind_Exception_Class,
                                         _Unwind_Exception*, _Unwind_Context*);

struct objc_selector {
    const char* name;
    const char* types;
};
struct Method {
    const char* name;
    const char* types;
    IMP body;
};
struct MethodList {
    MethodList* next;
    unsigned count;
    Method methods[1];
};
struct InstanceVariables {
    int count;
    struct {
        const char* names[2];
        int offset;
    } list[1];
};
struct objc_class {
    Class isa;
    Class superclass; ///< the name of it, until the class is prepared
    const char* name;
    unsigned long version;
    unsigned long info;
    long instanceSize; ///< negative and without the superclass, until the class is prepared
    InstanceVariables* variables;
    MethodList* methods;
    void* unused[6];
    int** offsets; ///< where compiled code reads the offset of each instance variable
};
struct Category {
    const char* name;
    const char* className;
    MethodList* methods;
    MethodList* classMethods;
};
struct SymbolTable {
    void* selectors[2];
    unsigned short classCount;
    unsigned short categoryCount;
    void* definitions[1]; ///< classes, then categories
};
struct Module {
    void* description[3];
    SymbolTable* symbols;
};
struct objc_super {
    id receiver;
    Class superclass;
};
}

namespace {

struct State {
    std::map<std::string, Class> classes;
    std::vector<Category*> categories;
    bool prepared = false;
    std::map<std::pair<Class, const char*>, IMP> found;
    std::map<id, std::set<id*>> weakPlaces;
    std::vector<id> pool;
    std::map<std::string, long> live;
};

State& state()
{
    static State& one = *new State; // static objects release theirs after `main`
    return one;
}

[[noreturn]] void die(const char* fault, id object, const char* selector = "")
{
    std::fprintf(stderr, "Objective-C: %s: [%s %s]\n", fault, object->isa->name, selector);
    std::abort();
}

void prepare(Class aClass)
{
    Class meta = aClass->isa;
    if (meta->superclass != nullptr) {
        return;
    }
    meta->isa = meta;
    meta->superclass = aClass; // the root's: a class may be sent what instances of the root are
    long base = 0;
    if (aClass->superclass != nullptr) {
        aClass->superclass = state().classes.at(reinterpret_cast<const char*>(aClass->superclass));
        prepare(aClass->superclass);
        meta->superclass = aClass->superclass->isa;
        base = aClass->superclass->instanceSize;
    }
    aClass->instanceSize = base - aClass->instanceSize;
    for (int i = 0; aClass->variables != nullptr && i < aClass->variables->count; ++i) {
        *aClass->offsets[i] = aClass->variables->list[i].offset += static_cast<int>(base);
    }
}

void prepareAll()
{
    state().prepared = true;
    for (const auto& [name, aClass] : state().classes) {
        prepare(aClass);
    }
    const auto add = [](MethodList* list, Class aClass) {
        if (list != nullptr) {
            list->next = std::exchange(aClass->methods, list);
        }
    };
    for (const Category* const category : state().categories) {
        const auto owner = state().classes.find(category->className);
        if (owner != state().classes.end()) { // the compiler adds one of no class, for protocols
            add(category->methods, owner->second);
            add(category->classMethods, owner->second->isa);
        }
    }
}

/// The method that the class itself has, or null.
IMP ownMethod(Class aClass, const char* name)
{
    for (MethodList* list = aClass->methods; list != nullptr; list = list->next) {
        for (unsigned i = 0; i < list->count; ++i) {
            if (std::strcmp(list->methods[i].name, name) == 0) {
                return list->methods[i].body;
            }
        }
    }
    return nullptr;
}

/// The method that the class has itself or from a superclass, or null.
IMP find(Class aClass, const char* name)
{
    if (!state().prepared) {
        prepareAll();
    }
    IMP& body = state().found[{aClass, name}];
    for (; aClass != nullptr && body == nullptr; aClass = aClass->superclass) {
        body = ownMethod(aClass, name);
    }
    return body;
}

/// Runs what the compiler made for the C++ members of each class.
void runForEachClass(id object, const char* name)
{
    for (Class aClass = object->isa; aClass != nullptr; aClass = aClass->superclass) {
        if (const IMP body = ownMethod(aClass, name)) {
            body(object, nullptr);
        }
    }
}

bool isBlock(id object)
{
    const void* const isa = object->isa;
    return isa == _NSConcreteStackBlock || isa == _NSConcreteMallocBlock ||
        isa == _NSConcreteGlobalBlock;
}

/// Classes and constant strings are never destroyed, and have no count.
bool isCounted(id object)
{
    constexpr unsigned long isMetaclass = 2;
    return object != nullptr && (object->isa->info & isMetaclass) == 0 &&
        std::strcmp(object->isa->name, "NSConstantString") != 0;
}

bool isKind(Class aClass, const char* name)
{
    return aClass != nullptr &&
        (std::strcmp(aClass->name, name) == 0 || isKind(aClass->superclass, name));
}

/// The owners of a counted object, before the object in memory; 0 once it is destroyed.
long& countOf(id object) RETURNS(reinterpret_cast<long*>(object)[-1]);

/// What a message to nil does.
id nothing(id /*receiver*/, SEL /*selector*/, ...) RETURNS(nullptr);

// Exceptions. The tables of a function name the class that it catches as a text, so the
// personality of C++ cannot read them.

constexpr _Unwind_Exception_Class objectiveC = 0x564f4c544f424a43;

struct Thrown {
    _Unwind_Exception header;
    id object;
};

/// Reads a number of variable length, and moves `place` behind it.
long readNumber(const unsigned char*& place, bool isSigned = false)
{
    long value = 0;
    int bits = 0;
    do {
        value |= static_cast<long>(*place & 0x7f) << bits;
        bits += 7;
    } while ((*place++ & 0x80) != 0);
    return isSigned && (place[-1] & 0x40) != 0 ? value - (1L << bits) : value;
}

/// The name of the class that an entry of the table of types refers to; null for `catch (...)`.
const char* caughtType(const unsigned char* types, unsigned char encoding, long filter)
{
    const long size = (encoding & 0xf) == 0xb ? 4 : 8; // DW_EH_PE_sdata4
    const unsigned char* const entry = types - filter * size;
    long relative = 0;
    std::memcpy(&relative, entry, static_cast<std::size_t>(size));
    relative = size == 4 ? static_cast<int>(relative) : relative;
    const char* name = nullptr;
    if (relative != 0) {
        std::memcpy(&name, entry + relative, sizeof name);
    }
    return name;
}

struct LandingPad {
    _Unwind_Ptr address = 0;
    long filter = 0; ///< which of the types is caught; 0 to clean up only
    bool takesObject = false;
};

/// Where `object` goes on in this frame of the stack, by the table that clang wrote.
LandingPad findLandingPad(id object, _Unwind_Context* context)
{
    const auto* place = static_cast<const unsigned char*>(_Unwind_GetLanguageSpecificData(context));
    if (place == nullptr) {
        return {};
    }
    const unsigned char encoding = place[1];
    place += 2;
    const long typesAfter = encoding == 0xff ? 0 : readNumber(place); // DW_EH_PE_omit
    const unsigned char* const types = place + typesAfter;
    const long callSitesSize = readNumber(++place);
    const unsigned char* const actions = place + callSitesSize;
    const _Unwind_Ptr start = _Unwind_GetRegionStart(context);
    const auto position = static_cast<long>(_Unwind_GetIP(context) - 1 - start);
    long first = 0;
    long pad = 0;
    long action = 0;
    for (long end = 0; place < actions && position >= end;) {
        first = readNumber(place);
        end = first + readNumber(place);
        pad = readNumber(place);
        action = readNumber(place);
    }
    if (pad == 0 || position < first) {
        return {};
    }
    const _Unwind_Ptr address = start + static_cast<_Unwind_Ptr>(pad);
    const unsigned char* record = actions + action - 1;
    for (bool more = action != 0; more;) {
        const long filter = readNumber(record, true);
        const unsigned char* const next = record;
        const long distance = readNumber(record, true);
        more = distance != 0;
        record = next + distance;
        const char* const caught = filter > 0 ? caughtType(types, encoding, filter) : "";
        if (caught == nullptr || isKind(object->isa, caught)) {
            return {address, filter, caught != nullptr};
        }
    }
    return {address, 0, false};
}

} // namespace

extern "C" {

void __objc_exec_class(Module* module)
{
    const SymbolTable& symbols = *module->symbols;
    for (int i = 0; i < symbols.classCount; ++i) {
        const auto aClass = static_cast<Class>(symbols.definitions[i]);
        state().classes[aClass->name] = aClass;
    }
    for (int i = 0; i < symbols.categoryCount; ++i) {
        void* const category = symbols.definitions[symbols.classCount + i];
        state().categories.push_back(static_cast<Category*>(category));
    }
}

const char* class_getName(Class aClass) RETURNS(aClass->name);

IMP objc_msg_lookup(id receiver, SEL selector)
{
    if (receiver == nullptr) {
        return &nothing;
    }
    if (voltmere::objc::onMessage != nullptr) {
        voltmere::objc::onMessage(receiver->isa->name, selector->name);
    }
    if (isCounted(receiver) && countOf(receiver) == 0) {
        die("a message to a destroyed object", receiver, selector->name);
    }
    const IMP body = find(receiver->isa, selector->name);
    if (body == nullptr) {
        die("unknown method", receiver, selector->name);
    }
    return body;
}

IMP objc_msg_lookup_super(objc_super* super, SEL selector)
{
    const IMP body = find(super->superclass, selector->name);
    if (body == nullptr) {
        die("unknown method of the superclass", super->receiver, selector->name);
    }
    return body;
}

IMP objc_msg_lookup_stret(id, SEL) SAME_AS(objc_msg_lookup);
IMP objc_msg_lookup_super_stret(objc_super*, SEL) SAME_AS(objc_msg_lookup_super);

// For the root class.

bool voltmere_isKind(id object, Class wanted) RETURNS(isKind(object->isa, wanted->name));

id voltmere_allocate(Class aClass)
{
    constexpr long header = 16;
    const auto size = static_cast<std::size_t>(aClass->instanceSize + header);
    const auto object = reinterpret_cast<id>(static_cast<char*>(std::calloc(1, size)) + header);
    object->isa = aClass;
    countOf(object) = 1;
    ++state().live[aClass->name];
    runForEachClass(object, ".cxx_construct");
    return object;
}

/// Its memory stays, so that a later message is noticed.
void voltmere_destroy(id object)
{
    runForEachClass(object, ".cxx_destruct");
    --state().live[object->isa->name];
    countOf(object) = 0;
}

// Automatic reference counting, as clang's document of that name specifies it.

id objc_retain(id object)
{
    if (object != nullptr && isBlock(object)) {
        return static_cast<id>(_Block_copy(object));
    }
    if (isCounted(object) && countOf(object)++ == 0) {
        die("a destroyed object is retained", object);
    }
    return object;
}

void objc_release(id object)
{
    if (object != nullptr && isBlock(object)) {
        _Block_release(object);
    } else if (isCounted(object) && countOf(object) == 0) {
        die("a destroyed object is released", object);
    } else if (isCounted(object) && countOf(object) > 1) {
        --countOf(object);
    } else if (isCounted(object)) {
        for (id* const place : state().weakPlaces[object]) {
            *place = nullptr;
        }
        state().weakPlaces.erase(object);
        static const objc_selector dealloc{"dealloc", nullptr};
        objc_msg_lookup(object, &dealloc)(object, &dealloc);
    }
}

id objc_autorelease(id object) RETURNS(state().pool.emplace_back(object));
void* objc_autoreleasePoolPush() RETURNS(reinterpret_cast<void*>(state().pool.size()));

void objc_autoreleasePoolPop(void* mark)
{
    while (state().pool.size() > reinterpret_cast<std::size_t>(mark)) {
        const id object = state().pool.back();
        state().pool.pop_back();
        objc_release(object);
    }
}

id objc_retainAutorelease(id object) RETURNS(objc_autorelease(objc_retain(object)));

id objc_retainBlock(id) SAME_AS(objc_retain);
id objc_retainAutoreleasedReturnValue(id) SAME_AS(objc_retain);
id objc_retainAutoreleaseReturnValue(id) SAME_AS(objc_retainAutorelease);
id objc_autoreleaseReturnValue(id) SAME_AS(objc_autorelease);

void objc_storeStrong(id* place, id object)
    DOES(objc_release(std::exchange(*place, objc_retain(object))));

id objc_initWeak(id* place, id object)
{
    state().weakPlaces[object].insert(place);
    return *place = object;
}

void objc_destroyWeak(id* place) DOES(state().weakPlaces[*place].erase(place));

id objc_storeWeak(id* place, id object)
{
    objc_destroyWeak(place);
    return objc_initWeak(place, object);
}

id objc_loadWeakRetained(id* place) RETURNS(objc_retain(*place));
void objc_copyWeak(id* to, id* from) DOES(objc_initWeak(to, *from));

void objc_moveWeak(id* to, id* from)
{
    objc_initWeak(to, *from);
    objc_destroyWeak(from);
}

// Declared properties without methods of their own.

static id* memberAt(id self, long offset)
    RETURNS(reinterpret_cast<id*>(reinterpret_cast<char*>(self) + offset));
id objc_getProperty(id self, SEL /*selector*/, long offset, bool /*atomic*/)
    RETURNS(objc_retainAutorelease(*memberAt(self, offset)));

void objc_setProperty(id self, SEL /*selector*/, long offset, id value, bool /*atomic*/,
                      bool /*copy*/)
    DOES(objc_storeStrong(memberAt(self, offset), value)); // what is copied here never changes
void objc_getPropertyStruct(void* to, const void* from, long size, bool /*atomic*/, bool /*strong*/)
    DOES(std::memcpy(to, from, static_cast<std::size_t>(size)));

void objc_setPropertyStruct(void*, const void*, long, bool, bool) SAME_AS(objc_getPropertyStruct);

void objc_enumerationMutation(id object) DOES(die("changed while enumerated", object));

[[noreturn]] void objc_exception_throw(id object)
{
    static Thrown thrown; // one at a time; the object belongs to a pool
    thrown = {{}, object};
    thrown.header.exception_class = objectiveC;
    _Unwind_RaiseException(&thrown.header);
    die("nobody catches this", object);
}

_Unwind_Reason_Code __gnu_objc_personality_v0(int version, _Unwind_Action actions,
                                              _Unwind_Exception_Class kind,
                                              _Unwind_Exception* header, _Unwind_Context* context)
{
    if (kind != objectiveC) {
        return __gxx_personality_v0(version, actions, kind, header, context);
    }
    const id object = reinterpret_cast<Thrown*>(header)->object;
    const LandingPad pad = findLandingPad(object, context);
    const bool isSearch = (actions & _UA_SEARCH_PHASE) != 0;
    if (pad.address == 0 || (isSearch && pad.filter == 0)) {
        return _URC_CONTINUE_UNWIND;
    }
    if (isSearch) {
        return _URC_HANDLER_FOUND;
    }
    const void* const passed = pad.takesObject ? static_cast<void*>(object) : header;
    _Unwind_SetGR(context, __builtin_eh_return_data_regno(0),
                  reinterpret_cast<_Unwind_Ptr>(passed));
    _Unwind_SetGR(context, __builtin_eh_return_data_regno(1), static_cast<_Unwind_Ptr>(pad.filter));
    _Unwind_SetIP(context, pad.address);
    return _URC_INSTALL_CONTEXT;
}

} // extern "C"

namespace voltmere::objc {

void (*onMessage)(const std::string& className, const std::string& selector) = nullptr;

std::map<std::string, long>& liveObjects()
{
    return state().live;
}

void drainPool() DOES(objc_autoreleasePoolPop(nullptr));

} // namespace voltmere::objc
