#include "support.h"

#include <new>
#include <stdexcept>
#include <type_traits>

namespace QX {
namespace {

static_assert(sizeof(Ptr<Table>) == 2 * sizeof(void*));
static_assert(sizeof(PtrRefCount) == 3 * sizeof(void*));
static_assert(sizeof(Cell) == 3 * sizeof(void*));
static_assert(!std::is_copy_constructible_v<PtrRefCount>);
static_assert(std::is_convertible_v<Ptr<Table>, Ptr<Table const>>);
static_assert(!std::is_convertible_v<Ptr<Table const>, Ptr<Table>>);
static_assert(!std::is_convertible_v<Table*, Ptr<Table>>);

static_assert(std::is_nothrow_constructible_v<Ptr<Table const>, Ptr<Table> const&>);

/// An object that knows how many of its class are alive, and may hold another.
struct Counted {
    Counted() { ++alive; }
    Counted(Counted const&) = delete;
    Counted& operator=(Counted const&) = delete;
    virtual ~Counted() { --alive; }

    Ptr<Counted> next;
    static inline int alive = 0;
};

struct Derived : Counted {
    ~Derived() override { ++ended; }

    static inline int ended = 0;
};

int calls = 0;

void countCall(PtrRefCount* block, void* /*object*/) {
    ++calls;
    delete block;
}

template <typename Call>
std::string failureOf(Call const& call) {
    try {
        call();
    } catch (std::exception const& e) {
        return e.what();
    }
    return "";
}

TEST(Ptr, LastHandleEndsTheObject) {
    Ptr<Counted> first(new Counted);
    {
        Ptr<Counted const> const second(first);
        EXPECT_EQ(second.get(), first.get());
        EXPECT_EQ(first.useCount(), 2U);
        first.reset();
        EXPECT_TRUE(first.isNull());
        EXPECT_EQ(Counted::alive, 1);
        EXPECT_EQ(second.useCount(), 1U);
    }
    EXPECT_EQ(Counted::alive, 0);

    Ptr<Counted> base(Ptr<Derived>(new Derived));
    base.reset();
    EXPECT_EQ(Derived::ended, 1) << "as what it was made";
}

TEST(Ptr, AssignmentKeepsCounts) {
    Ptr<Counted> a(new Counted);
    Ptr<Counted> b(a);
    Ptr<Counted>& self = a;
    a = self;
    a = b;
    a = std::move(self);
    EXPECT_EQ(a.useCount(), 2U);

    Ptr<Counted> c(new Counted);
    b = c;
    EXPECT_EQ(a.useCount(), 1U);
    EXPECT_EQ(c.useCount(), 2U);
    a = std::move(b);
    EXPECT_TRUE(b.isNull());
    EXPECT_EQ(c.useCount(), 2U);
    EXPECT_EQ(Counted::alive, 1);
    a.swap(b);
    EXPECT_TRUE(a.isNull());
    b = a;
    c = nullptr;
    EXPECT_EQ(Counted::alive, 0);
}

/// Bases that lie elsewhere than at the beginning of the object: behind another one, where the object
/// keeps it for all to share, and before a table of virtual functions.
struct Plain {
    int value = 3;
};
struct Second : Counted, Plain {};
struct Virtual : virtual Counted {
    int value = 4;
};
struct Wrapped : Plain {
    virtual ~Wrapped() { ++ended; }
    static inline int ended = 0;
};

TEST(Ptr, ConvertsToBasesAtAnyAddress) {
    Ptr<Second> second(new Second);
    Ptr<Plain> plain(second);
    EXPECT_NE(static_cast<void*>(plain.get()), static_cast<void*>(second.get()));
    second = nullptr;
    EXPECT_EQ(plain->value, 3);
    EXPECT_EQ(Counted::alive, 1);
    Ptr<Plain const> const kept(plain);
    plain.reset();
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(kept.useCount(), 1U);

    Ptr<Virtual> shared(new Virtual);
    Ptr<Counted> base;
    base = shared;
    shared.reset();
    EXPECT_EQ(Counted::alive, 2);
    base = Ptr<Virtual>();
    EXPECT_EQ(Counted::alive, 1);

    Ptr<Plain> wrapped(Ptr<Wrapped>(new Wrapped));
    EXPECT_EQ(wrapped->value, 3);
    wrapped.reset();
    EXPECT_EQ(Wrapped::ended, 1);
}

TEST(Ptr, AssignmentWithinOneBlockChangesNothing) {
    Ptr<Second> const whole(new Second);
    for (bool const moving : {false, true}) {
        SCOPED_TRACE(moving);
        int other = 5;
        whole.block()->increment();
        whole.block()->increment();
        Ptr<int> to(&whole->value, whole.block());
        Ptr<int> from(&other, whole.block());
        if (moving) {
            to = std::move(from);
        } else {
            to = from;
        }
        EXPECT_EQ(to.get(), &whole->value);
        EXPECT_EQ(from.isNull(), moving);
        EXPECT_EQ(whole.useCount(), moving ? 2U : 3U);
    }
    EXPECT_EQ(whole.useCount(), 1U);
}

TEST(Ptr, ResetPassesOnWhatTheDeleterRaises) {
    int object = 7;
    PtrRefCount block("another module", &PtrRefCount::release);
    Ptr<int> handle(&object, &block);
    EXPECT_EQ(failureOf([&] { handle.reset(); }), "Deletion across dll boundary");
    EXPECT_EQ(blockOf(handle), nullptr);
    EXPECT_TRUE(block.canDelete());
    EXPECT_EQ(object, 7);
}

TEST(Ptr, AssignmentFromInsideTheObjectThatItEnds) {
    Ptr<Counted> head(new Counted);
    head->next = Ptr<Counted>(new Counted);
    head = head->next;
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(head.useCount(), 1U);
    head = std::move(head->next);
    EXPECT_EQ(Counted::alive, 0);
}

TEST(Ptr, HandleWithoutObjectOrBlockIsNull) {
    Counted object;
    Ptr<Counted> const bare(&object, nullptr);
    EXPECT_TRUE(bare.isNull());
    EXPECT_EQ(bare.useCount(), 0U);
    EXPECT_EQ(Ptr<Counted>(bare).get(), nullptr);

    calls = 0;
    auto* const block = new PtrRefCount("here", &countCall);
    {
        Ptr<Counted> empty(nullptr, block);
        EXPECT_TRUE(empty.isNull());
        EXPECT_EQ(blockOf(Ptr<Counted const>(empty)), nullptr);
        EXPECT_EQ(blockOf(Ptr<Counted>(std::move(empty))), nullptr) << "moved as it is copied";
        EXPECT_EQ(blockOf(empty), block);
        Ptr<Counted> target(new Counted);
        target = empty;
        EXPECT_EQ(blockOf(target), nullptr);
        EXPECT_EQ(Counted::alive, 1);
        EXPECT_EQ(block->count(), 1U);
        empty = bare;
        EXPECT_EQ(calls, 1) << "assignment releases a block without an object, too";
    }
    EXPECT_EQ(calls, 1);
}

TEST(Ptr, BlocksNameTheirModuleAndRefuseASharedObject) {
    Ptr<Counted> const own(new Counted);
    Ptr<Table> const theirs = Table("t").clone();
    EXPECT_STREQ(blockOf(own)->location(), "qxclient");
    EXPECT_STREQ(blockOf(theirs)->location(), "qxdll");
    EXPECT_STREQ(blockOf(nested(Cell(Ptr<Table>())))->location(), "qxdll");
    EXPECT_EQ(failureOf([&] { blockOf(own)->remove(own.get()); }), "Reference Count non zero");
    EXPECT_EQ(failureOf([&] { blockOf(theirs)->remove(theirs.get()); }), "Reference Count non zero");
    EXPECT_EQ(Counted::alive, 1);
    EXPECT_EQ(string(theirs->name()), "t");
}

TEST(PtrRefCount, AssignmentCopiesEveryField) {
    PtrRefCount source("source", &countCall);
    source.increment();
    auto* const target = new PtrRefCount("target", &PtrRefCount::release);
    *target = source;
    EXPECT_EQ(target->count(), 2U);
    EXPECT_STREQ(target->location(), "source");
    calls = 0;
    target->remove(nullptr);
    EXPECT_EQ(calls, 1);
}

TEST(PtrRefCount, ReleaseFreesWithoutDestroying) {
    char const tag[] = "qxdll"; // compared by text, not by address
    auto* const block = new PtrRefCount(tag, &PtrRefCount::release);
    void* const object = ::operator new(sizeof(Counted));
    new (object) Counted;
    block->increment();
    EXPECT_EQ(failureOf([&] { PtrRefCount::release(block, object); }), "Reference Count non zero");
    EXPECT_FALSE(block->decrement());
    EXPECT_FALSE(block->canDelete());
    EXPECT_TRUE(block->decrement());
    EXPECT_TRUE(block->canDelete());
    EXPECT_EQ(failureOf([&] { PtrRefCount::release(block, object); }), "");
    EXPECT_EQ(std::exchange(Counted::alive, 0), 1);
}

TEST(PtrRefCount, ReleaseLooksAtTheModuleFirst) {
    for (char const* const tag :
         {"qxdl", "qxdll2", "QXDLL", "qxclient", "", static_cast<char const*>(nullptr)}) {
        PtrRefCount block(tag, &PtrRefCount::release);
        EXPECT_EQ(failureOf([&] { PtrRefCount::release(&block, nullptr); }),
                  "Deletion across dll boundary")
            << (tag == nullptr ? "null" : tag);
    }
}

TEST(PtrRefCount, DestructionClearsTheModule) {
    alignas(PtrRefCount) unsigned char storage[sizeof(PtrRefCount)];
    auto* const block = new (storage) PtrRefCount("here", &countCall);
    block->~PtrRefCount();
    void* location = storage;
    std::memcpy(&location, storage + 2 * sizeof(void*), sizeof location);
    EXPECT_EQ(location, nullptr);
}

} // namespace
} // namespace QX
