// Builds the window of each named interface description.
#pragma once

#include <QWidget>

#include <memory>
#include <vector>

namespace zolt {

/// Installs its builders when it is made and takes them away when it goes; owns the windows that stay for the life of
/// their owners. Made before the program's objects. Main thread.
class QtInterfaces
{
public:
    QtInterfaces();
    ~QtInterfaces();
    QtInterfaces(const QtInterfaces&) = delete;
    QtInterfaces& operator=(const QtInterfaces&) = delete;

    /// Closes every window it has built; output windows too. Called before the owners go.
    void closeAll();
    /// The windows built so far that are still there.
    std::vector<QWidget*> windows() const;

private:
    template <class View, class Owner> void install(const char16_t* name);
    std::vector<std::unique_ptr<QWidget>> windows_;
};

} // namespace zolt
