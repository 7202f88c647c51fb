#pragma once

#include "qx/export.h"
#include "qxbase/str.h"

#include <set>

namespace QX {

/// What a library says of itself: its name, its version and the numbers of the interfaces it supports.
///
/// A base class for the description of a library. A value: a copy shares nothing.
class QX_API LibraryBase {
public:
    /// Makes a description that supports one interface, without a name, at version 0.0.
    LibraryBase(int number);
    /// Copies name, version and interfaces.
    LibraryBase(LibraryBase const& other) = default;
    /// Copies name, version and interfaces, which replace those of this description.
    LibraryBase& operator=(LibraryBase const& other);
    virtual ~LibraryBase();

    /// Sets the name.
    void name(Str const& text);
    /// A copy of the name.
    Str const name() const;
    /// Sets the version.
    void version(double number);
    /// The version; 0.0 until it is set.
    double version() const;

    /// The numbers of the supported interfaces, in ascending order, a blank after each ("7 ").
    Str interfaces() const;
    /// True when the interface with this number is supported.
    bool checkInterface(int number) const;

private:
    Str name_;
    double version_ = 0.0;
    std::set<int> interfaces_;
};

/// An object that is known by a name, and by a second text where a derived class gives it one.
///
/// A base class: a derived class may override what create(), name(), moniker() and checkMoniker() say,
/// and sets the texts through the protected members. A value: a copy shares nothing.
class QX_API Moniker {
public:
    /// Makes a moniker without a name.
    Moniker() = default;
    /// Makes a moniker with a name.
    Moniker(Str const& name);
    /// Copies both texts.
    Moniker(Moniker const& other) = default;
    /// Copies both texts.
    Moniker& operator=(Moniker const& other);
    virtual ~Moniker();

    /// Sets the name and returns what name() then gives, as a derived class has it.
    virtual Str create(Str const& name);
    /// A copy of the name.
    virtual Str name() const;
    /// A copy of the moniker text, or what name() gives, as a derived class has it, while that is empty.
    virtual Str moniker() const;
    /// Says whether a text is acceptable as a moniker: every text is, unless a derived class overrides
    /// this.
    virtual bool checkMoniker(Str const& text) const;

protected:
    /// Sets the name. A derived class that overrides name() const must call it as Moniker::name(text).
    void name(Str const& text);
    /// Sets the moniker text; an empty one makes moniker() give the name again.
    void moniker(Str const& text);

private:
    Str moniker_;
    Str name_;
};

} // namespace QX
