// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/output_file.h"

#include "base/failure.h"
#include "platform/part_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/syscall.h>
#endif

using namespace quorra;

namespace {

// The state of the functions below.
std::vector<std::string> &calls()
{
    static std::vector<std::string> seen;
    return seen;
}

int killAtCall = 0;           ///< counted from 1; 0: never
const char *failingCall = ""; ///< the next call of this name fails with EIO

/// Returns true if the call should fail.
[[maybe_unused]] bool noteCall(const char *name)
{
    calls().emplace_back(name);
    if (killAtCall == static_cast<int>(calls().size())) {
        raise(SIGKILL);
    }
    if (std::strcmp(failingCall, name) != 0) {
        return false;
    }
    failingCall = "";
    errno = EIO;
    return true;
}

} // namespace

#ifdef __linux__
// These replace the C library's functions. Each call is recorded before and after it is executed, so that the process
// can be killed at both moments.
namespace {

int duplicate = -1; ///< what dup() gave last

template <typename Call>
int noted(const char *name, Call call)
{
    if (noteCall(name)) {
        return -1;
    }
    const int result = static_cast<int>(call());
    noteCall("done");
    return result;
}

} // namespace

extern "C" int fdatasync(int descriptor)
{
    return noted("sync", [=] { return syscall(SYS_fdatasync, descriptor); });
}

extern "C" int fsync(int descriptor)
{
    struct stat status
    {
    };
    const bool folder = fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    return noted(folder ? "sync folder" : "sync", [=] { return syscall(SYS_fsync, descriptor); });
}

extern "C" int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return noted("link", [=] { return syscall(SYS_linkat, fromFolder, from, toFolder, to, flags); });
}

extern "C" int rename(const char *from, const char *to) noexcept
{
    return noted("rename", [=] { return syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0); });
}

extern "C" int dup(int descriptor) noexcept
{
    return duplicate = noted("dup", [=] { return syscall(SYS_dup, descriptor); });
}

extern "C" int close(int descriptor)
{
    const int result = static_cast<int>(syscall(SYS_close, descriptor));
    if (descriptor != duplicate || std::strcmp(failingCall, "close") != 0) {
        return result;
    }
    failingCall = "";
    errno = EIO;
    return -1;
}
#endif

/// Runs the same tests with the functions of the platform and with the portable ones.
class OutputFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void appearsWhenItIsCommitted();
    void replacesWhatStoodThere();
    void leavesNothingWithoutCommit();
    void writesInPieces();
    void writesAtAPlace();
    void copiesAFile();
    void handsOutItsDescriptor();
    void followsTheUmask();
    void failsWhereItCannotBegin_data();
    void failsWhereItCannotBegin();
    void failsInAFolderThatIsReadOnly();
    void failsWithoutSpace_data();
    void failsWithoutSpace();
    void failsOverAFolder();
    void failsToCopyWhatIsNotThere();
    void isOnDiskBeforeItHasItsName();
    void failsWhenTheDiskDoes_data();
    void failsWhenTheDiskDoes();
    void syncsTheFolder();
    void survivesAKillAtAnyMoment_data();
    void survivesAKillAtAnyMoment();

private:
    std::string path(const char *name = "out") const { return m_folder->filePath(QLatin1String(name)).toStdString(); }
    QByteArray content(const char *name = "out") const;
    QStringList files() const;
    void put(const char *name, const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

/// The message of the failure; empty if there was none. All failures must be CannotWrite.
std::string failureOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const Failure &failure) {
        return failure.status() == ExitStatus::CannotWrite ? failure.what() : "wrong status";
    }
    return {};
}

bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}

/// Limits the size of files, like a full disk.
class SizeLimit
{
public:
    explicit SizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~SizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    SizeLimit(const SizeLimit &) = delete;
    SizeLimit &operator=(const SizeLimit &) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = SIG_DFL;
};

constexpr std::size_t largeSize = 1'000'000; // many times the buffer

} // namespace

void OutputFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    calls().clear();
    killAtCall = 0;
    failingCall = "";
}

QByteArray OutputFileTest::content(const char *name) const
{
    QFile file(QString::fromStdString(path(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

QStringList OutputFileTest::files() const
{
    return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

void OutputFileTest::put(const char *name, const QByteArray &bytes) const
{
    QFile file(QString::fromStdString(path(name)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void OutputFileTest::appearsWhenItIsCommitted()
{
    OutputFile file(path());
    file.write("new");
    QVERIFY(!QFile::exists(QString::fromStdString(path())));
    file.commit();
    QCOMPARE(content(), QByteArray("new"));
    QCOMPARE(files(), QStringList{QStringLiteral("out")});
}

void OutputFileTest::replacesWhatStoodThere()
{
    put("out", "old and longer");
    OutputFile file(path());
    file.write("new");
    QCOMPARE(content(), QByteArray("old and longer"));
    file.commit();
    QCOMPARE(content(), QByteArray("new"));
    QCOMPARE(files(), QStringList{QStringLiteral("out")});
}

void OutputFileTest::leavesNothingWithoutCommit()
{
    put("out", "old");
    {
        OutputFile file(path());
        file.write(std::string(largeSize, 'x'));
    }
    QCOMPARE(content(), QByteArray("old"));
    QCOMPARE(files(), QStringList{QStringLiteral("out")});
}

void OutputFileTest::writesInPieces()
{
    std::string expected;
    OutputFile file(path());
    // Below, at and above the size of its buffer.
    for (const std::size_t length : {1, 65'535, 65'536, 65'537, 3, 500'000, 0, 7}) {
        const std::string piece(length, static_cast<char>('a' + length % 26));
        file.write(piece);
        expected += piece;
    }
    file.commit();
    QVERIFY(content() == QByteArray::fromStdString(expected));
}

void OutputFileTest::writesAtAPlace()
{
    OutputFile file(path());
    file.write("0123456789");
    file.writeAt(2, "ab");
    file.write("x");
    file.writeAt(0, "c");
    file.writeAt(14, "end");
    file.write("y");
    file.commit();
    QCOMPARE(content(), QByteArray("c1ab456789xy\0\0end", 17));
}

void OutputFileTest::copiesAFile()
{
    const QByteArray large(largeSize, 'l');
    put("source", large);
    OutputFile file(path());
    file.write("before ");
    file.writeFile(path("source"));
    file.write(" after");
    file.commit();
    QVERIFY(content() == "before " + large + " after");
}

void OutputFileTest::handsOutItsDescriptor()
{
    OutputFile file(path());
    file.write("first ");
    QCOMPARE(::write(file.descriptor(), "second ", 7), 7);
    file.write("third");
    file.commit();
    QCOMPARE(content(), QByteArray("first second third"));
}

void OutputFileTest::followsTheUmask()
{
    const mode_t before = umask(027);
    OutputFile file(path());
    file.commit();
    umask(before);
    struct stat status
    {
    };
    QCOMPARE(stat(path().c_str(), &status), 0);
    QCOMPARE(status.st_mode & 0777, 0640U);
}

void OutputFileTest::failsWhereItCannotBegin_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("error");
    QTest::newRow("no such folder") << QByteArrayLiteral("none/out") << ENOENT;
    QTest::newRow("a file for a folder") << QByteArrayLiteral("file/out") << ENOTDIR;
}

void OutputFileTest::failsWhereItCannotBegin()
{
    QFETCH(QByteArray, name);
    QFETCH(int, error);
    put("file", "");
    const std::string line = failureOf([&] { const OutputFile file(path(name.constData())); });
    QCOMPARE(
        QByteArray::fromStdString(line),
        QByteArray::fromStdString("cannot write " + path(name.constData()) + ": " + std::strerror(error)));
    QCOMPARE(files(), QStringList{QStringLiteral("file")});
}

void OutputFileTest::failsInAFolderThatIsReadOnly()
{
    put("out", "old");
    // Root can write everywhere, so use a process of another user.
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) {
            _exit(2);
        }
        _exit(contains(failureOf([&] { const OutputFile file(path()); }), std::strerror(EACCES)) ? 0 : 1);
    }
    QVERIFY(child > 0);
    int status = 0;
    chmod(m_folder->path().toLocal8Bit().constData(), 0555);
    QCOMPARE(waitpid(child, &status, 0), child);
    chmod(m_folder->path().toLocal8Bit().constData(), 0700);
    QCOMPARE(status, 0);
    QCOMPARE(content(), QByteArray("old"));
}

void OutputFileTest::failsWithoutSpace_data()
{
    using Write = std::function<void(OutputFile &)>;
    QTest::addColumn<Write>("write");
    QTest::newRow("one large piece") << Write([](OutputFile &file) { file.write(std::string(largeSize, 'x')); });
    QTest::newRow("what the buffer held") << Write([](OutputFile &file) { file.write(std::string(10'000, 'x')); });
    QTest::newRow("at a place") << Write([](OutputFile &file) { file.writeAt(largeSize, "x"); });
    QTest::newRow("a file") << Write([](OutputFile &file) { file.writeFile("/proc/self/exe"); });
}

void OutputFileTest::failsWithoutSpace()
{
    QFETCH(std::function<void(OutputFile &)>, write);
    put("out", "old");
    std::string line;
    {
        const SizeLimit limit(4096);
        line = failureOf([&] {
            OutputFile file(path());
            write(file);
            file.commit();
        });
    }
    QVERIFY2(contains(line, std::strerror(EFBIG)), line.c_str());
    QCOMPARE(content(), QByteArray("old"));
    QCOMPARE(files(), QStringList{QStringLiteral("out")});
}

void OutputFileTest::failsOverAFolder()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("out")));
    const std::string line = failureOf([&] {
        OutputFile file(path());
        file.write("new");
        file.commit();
    });
    QVERIFY2(contains(line, "cannot write"), line.c_str());
    QCOMPARE(files(), QStringList{QStringLiteral("out")});
}

void OutputFileTest::failsToCopyWhatIsNotThere()
{
    const std::string line = failureOf([&] {
        OutputFile file(path());
        file.writeFile(path("none"));
    });
    QVERIFY2(contains(line, std::strerror(ENOENT)), line.c_str());
    QVERIFY(files().isEmpty());
}

void OutputFileTest::isOnDiskBeforeItHasItsName()
{
#ifdef __linux__
    const auto indexOf = [](const char *name) {
        return std::find(calls().begin(), calls().end(), name) - calls().begin();
    };
    const auto never = [] { return static_cast<std::ptrdiff_t>(calls().size()); };
    for (const bool replaces : {false, true}) {
        QCOMPARE(QFile::exists(QString::fromStdString(path())), replaces);
        OutputFile file(path());
        file.write("new");
        calls().clear();
        file.commit();
        const auto named = std::min(indexOf("link"), indexOf("rename"));
        QVERIFY(named < never());
        QVERIFY(indexOf("sync") < named);
        QVERIFY(indexOf("dup") < named);
    }
#endif
}

void OutputFileTest::failsWhenTheDiskDoes_data()
{
    QTest::addColumn<QByteArray>("call");
    for (const char *call : {"sync", "dup", "close", "rename"}) {
        QTest::newRow(call) << QByteArray(call);
    }
}

void OutputFileTest::failsWhenTheDiskDoes()
{
#ifdef __linux__
    QFETCH(QByteArray, call);
    put("out", "old");
    failingCall = call.constData();
    const std::string line = failureOf([&] {
        OutputFile file(path());
        file.write("new");
        file.commit();
    });
    QVERIFY2(contains(line, std::strerror(EIO)), line.c_str());
    QCOMPARE(content(), QByteArray("old"));
    QCOMPARE(files(), QStringList{QStringLiteral("out")});
#endif
}

void OutputFileTest::syncsTheFolder()
{
#ifdef __linux__
    syncFolderOf(path());
    QVERIFY(std::find(calls().begin(), calls().end(), "sync folder") != calls().end());
    failingCall = "sync folder";
    const std::string line = failureOf([&] { syncFolderOf(path()); });
    QVERIFY2(contains(line, std::strerror(EIO)), line.c_str());
#endif
    // A folder that cannot be opened cannot be synced, which is not an error.
    syncFolderOf("/nowhere/out");
}

void OutputFileTest::survivesAKillAtAnyMoment_data()
{
    QTest::addColumn<bool>("replaces");
    QTest::newRow("a new file") << false;
    QTest::newRow("a file that was there") << true;
}

void OutputFileTest::survivesAKillAtAnyMoment()
{
#ifdef __linux__
    QFETCH(bool, replaces);
    const QByteArray whole(largeSize, 'n');
    const QByteArray before = replaces ? QByteArray("old") : QByteArray("not there");
    bool ended = false;
    int kills = 0;
    for (int moment = 1; !ended; ++moment) {
        QFile::remove(QString::fromStdString(path()));
        if (replaces) {
            put("out", before);
        }
        const pid_t child = fork();
        if (child == 0) {
            killAtCall = moment;
            OutputFile file(path());
            file.write(whole.toStdString());
            file.commit();
            _exit(0);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        ended = WIFEXITED(status);
        kills += WIFSIGNALED(status);
        QVERIFY2(content() == whole || (!ended && content() == before), "neither old nor new");
        sweepPartFiles(m_folder->path().toStdString());
        QVERIFY2(files().size() <= 1, qPrintable(files().join(QLatin1Char(' '))));
    }
    QVERIFY(kills >= 4);
#endif
}

QTEST_GUILESS_MAIN(OutputFileTest)
#include "output_file_test.moc"
