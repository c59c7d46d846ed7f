// The user's settings: what the user has saved stands above what the program registers.
#pragma once

#include <QString>
#include <QVariant>

#include <map>
#include <mutex>
#include <optional>

namespace zolt {

/// Values are texts, whole numbers, decimal numbers and truth values; a value reads as any of them, as a decimal
/// reading of its text gives it. Every operation may be called on any thread.
class UserDefaults
{
public:
    using Values = std::map<QString, QVariant>;

    /// The settings of the running program, in "zolt/settings.ini" of the user's configuration directory.
    static UserDefaults& standard();

    /// @param path  the file of the saved values; one that does not exist counts as empty
    explicit UserDefaults(const QString& path);

    /// Adds values that stand wherever the user has saved none; a key registered again takes the new value.
    void registerDefaults(const Values& values);

    /// The value of a key, saved or registered; nothing if it is neither.
    std::optional<QVariant> objectForKey(const QString& key) const;
    /// As objectForKey, as text; empty if there is none.
    QString stringForKey(const QString& key) const;
    /// As objectForKey, as a whole number; 0 if there is none.
    int integerForKey(const QString& key) const;
    /// As objectForKey, as a decimal number; 0.0 if there is none.
    double doubleForKey(const QString& key) const;
    /// As objectForKey, as a truth value: true, or a number that is not 0.
    bool boolForKey(const QString& key) const;

    /// What stands against the file of the saved values, in words for a person: it is damaged, comes from a later
    /// version, or could not be read or saved. Empty if nothing does.
    QString complaint() const;

    /// Sets a value and saves it at once. A file that cannot be written is logged; the value holds for this run. What
    /// saving would lose of a damaged file is kept in a copy beside it first; without the copy nothing is saved.
    void set(const QString& key, const QVariant& value);
    /// Removes the saved value, so that the registered one stands again, and saves that at once.
    void remove(const QString& key);

    /// From here on nothing is saved: what is set holds for this run alone.
    void keepInMemory();
    /// Forgets the values and reads those of another file, which is saved to from here on. What is registered stays.
    void reopen(const QString& path);

    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

private:
    void load(const QString& path);
    void change(const QString& key, const std::optional<QVariant>& value);
    void save(const QString& key, const std::optional<QVariant>& value);

    std::mutex fileMutex_; ///< taken first; over path_, inMemory_ and the file, so that readers never wait for a disk
    QString path_;
    bool inMemory_ = false;
    mutable std::mutex mutex_; ///< over the values
    Values saved_;
    Values registered_;
    QString fileComplaint_; ///< about the file as it was found
    QString saveComplaint_; ///< about the last saving
};

} // namespace zolt
