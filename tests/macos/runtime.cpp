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
struct SymbolTable {
    void* selectors[2];
    unsigned short classCount;
    unsigned short categoryCount; ///< the compiler's own; the stand-ins have none
    void* definitions[1];         ///< classes first
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

/// Before the first message to the class or to an object of it.
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

/// The method that the class itself has, or null.
IMP ownMethod(Class aClass, const char* name)
{
    const MethodList* const list = aClass->methods;
    for (unsigned i = 0; list != nullptr && i < list->count; ++i) {
        if (std::strcmp(list->methods[i].name, name) == 0) {
            return list->methods[i].body;
        }
    }
    return nullptr;
}

/// The method that the class has itself or from a superclass, or null.
IMP find(Class aClass, const char* name)
{
    prepare(state().classes.at(aClass->name)); // a metaclass has the name of its class
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

/// The owners of a counted object, before the object in memory; 0 once it is destroyed.
long& countOf(id object) RETURNS(reinterpret_cast<long*>(object)[-1]);

/// What a message to nil does.
id nothing(id /*receiver*/, SEL /*selector*/, ...) RETURNS(nullptr);

} // namespace

extern "C" {

void __objc_exec_class(Module* module)
{
    const SymbolTable& symbols = *module->symbols;
    for (int i = 0; i < symbols.classCount; ++i) {
        const auto aClass = static_cast<Class>(symbols.definitions[i]);
        state().classes[aClass->name] = aClass;
    }
}

const char* class_getName(Class aClass) RETURNS(aClass->name);

IMP objc_msg_lookup(id receiver, SEL selector)
{
    if (receiver == nullptr) {
        return &nothing;
    }
    voltmere::objc::noteMessage(receiver->isa->name, selector->name);
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
    RETURNS(find(super->superclass, selector->name));

IMP objc_msg_lookup_stret(id, SEL) SAME_AS(objc_msg_lookup);
IMP objc_msg_lookup_super_stret(objc_super*, SEL) SAME_AS(objc_msg_lookup_super);

// For the root class.

bool voltmere_isKind(id object, Class wanted)
{
    Class aClass = object->isa;
    while (aClass != nullptr && aClass != wanted) {
        aClass = aClass->superclass;
    }
    return aClass != nullptr;
}

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
    DOES(state().weakPlaces[object].insert(place); return * place = object);

void objc_destroyWeak(id* place) DOES(state().weakPlaces[*place].erase(place));

id objc_storeWeak(id* place, id object)
    DOES(objc_destroyWeak(place); return objc_initWeak(place, object));

id objc_loadWeakRetained(id* place) RETURNS(objc_retain(*place));
void objc_copyWeak(id* to, id* from) DOES(objc_initWeak(to, *from));
void objc_moveWeak(id* to, id* from) DOES(objc_copyWeak(to, from); objc_destroyWeak(from));

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

/// Nothing of Objective-C is thrown here, so each exception is one of C++.
_Unwind_Reason_Code __gnu_objc_personality_v0(int version, _Unwind_Action actions,
                                              _Unwind_Exception_Class kind,
                                              _Unwind_Exception* header, _Unwind_Context* context)
    RETURNS(__gxx_personality_v0(version, actions, kind, header, context));

} // extern "C"

namespace voltmere::objc {

std::map<std::string, long>& liveObjects() RETURNS(state().live);
void drainPool() DOES(objc_autoreleasePoolPop(nullptr));

} // namespace voltmere::objc
