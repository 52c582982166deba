#pragma once

#include <QJsonObject>
#include <QObject>
#include <QString>

#include <optional>

namespace Quillstacks {

/// The user's settings: one JSON file of typed values, written atomically (mode 0600) the moment a value changes.
/// An integer stays an integer. Keys that this program does not know are kept. A file that is no JSON object is set
/// aside
/// ("preferences.json.broken", a number appended when that is taken), all keys read as absent, and an error goes to the
/// log. A file that cannot be read at all stays as it is: values hold in memory only, until a later start reads it. A
/// write that fails is logged, the value holds in memory, and the next write tries again.
/// Main thread only.
class Preferences final : public QObject {
    Q_OBJECT
public:
    /// Opens the file, taking group's and others' rights from it and its folder, or starts empty. The folder is made
    /// (0700) when the first value is written.
    explicit Preferences(QString filePath, QObject* parent = nullptr);

    /// The program's one domain. Made on first use at GenericConfigLocation/app.Quillstacks/preferences.json, unless
    /// setStandard() came first.
    static Preferences& standard();
    /// Puts another object in its place (nullptr: back to the default); the caller keeps ownership. For tests.
    static void setStandard(Preferences* preferences);

    [[nodiscard]] bool contains(const QString& key) const;
    /// Each is empty when the key is absent or holds a value of another type. A JSON number that is whole reads as an
    /// integer; one that is not, or exceeds 64 bits, does not.
    [[nodiscard]] std::optional<bool> boolean(const QString& key) const;
    [[nodiscard]] std::optional<qint64> integer(const QString& key) const;
    [[nodiscard]] std::optional<QString> text(const QString& key) const;

    void set(const QString& key, bool value);
    void set(const QString& key, qint64 value);
    void set(const QString& key, const QString& value);
    void set(const QString& key, const char*) = delete; // would silently pick the Boolean
    void remove(const QString& key);
    /// Removes every key, also unknown ones; observers hear of each.
    void removePersistentDomain();
    /// Writes now if an earlier write failed; otherwise everything is on disk already.
    void synchronize();

    [[nodiscard]] const QString& filePath() const { return path; }

    /// While one is alive, writes are held back and made once at its end; reads and observers see changes at once.
    class Batch final {
    public:
        explicit Batch(Preferences& target);
        ~Batch();
        Q_DISABLE_COPY_MOVE(Batch)
    private:
        Preferences& preferences;
    };

Q_SIGNALS:
    /// Told at once, within the call that changed the value; not told when the value was the same already.
    void changed(const QString& key);

private:
    void load();
    void change(const QString& key, const QJsonValue& value);
    void write();
    void synchronizeUnlessBatched();

    QString path;
    QJsonObject values;
    bool dirty = false;    ///< holds what is not on disk yet
    bool unread = false;   ///< the file holds what could not be read, and must not be written over
    bool unusable = false; ///< a file that is no JSON object stands in the way and could not be set aside yet
    int batches = 0;
};

} // namespace Quillstacks
