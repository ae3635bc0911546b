#include <unistd.h>

#include <csignal>
#include <thread>

#include "ConvertCommand.h"
#include "files/SafeFile.h"
#include "files/Temporaries.h"

namespace {

namespace fs = std::filesystem;

class Signal : public test::Tool {
protected:
    std::size_t filesHere() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(path(".")), {}));
    }

    /// A process that is about to replace a file when the signal comes; gives its status.
    int endOfWriter(int signal) const {
        int pipes[2];
        EXPECT_EQ(pipe(pipes), 0);
        const pid_t writer = fork();
        if (writer == 0) {
            std::signal(signal, SIG_DFL);  // what runs in the background has INT ignored
            zyr::removeTemporariesOnSignals();
            zyr::SafeFile first(path("old.ply")), second(path("new.ply"));
            first.put("torn");
            second.finish();
            if (write(pipes[1], "!", 1) == 1) pause();
            _exit(99);
        }
        char ready = 0;
        EXPECT_EQ(read(pipes[0], &ready, 1), 1);
        EXPECT_EQ(filesHere(), 3u);
        kill(writer, signal);
        int status = 0;
        waitpid(writer, &status, 0);
        close(pipes[0]);
        close(pipes[1]);
        return status;
    }
};

TEST_F(Signal, TakesTheTemporaryFilesAlongAndLeavesTheOldOnes) {
    test::writeText(path("old.ply"), "precious");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGXCPU}) {
        const int status = endOfWriter(signal);
        EXPECT_TRUE(WIFSIGNALED(status)) << signal;
        EXPECT_EQ(WTERMSIG(status), signal);
        EXPECT_EQ(filesHere(), 1u) << signal;
        EXPECT_EQ(test::readText(path("old.ply")), "precious");
    }
}

TEST_F(Signal, ThatIsIgnoredStaysSo) {
    const auto before = std::signal(SIGHUP, SIG_IGN);
    zyr::removeTemporariesOnSignals();
    EXPECT_EQ(std::signal(SIGHUP, before), SIG_IGN);
    for (const int signal : {SIGINT, SIGTERM}) EXPECT_NE(std::signal(signal, SIG_DFL), SIG_DFL);
}

// The list has 256 places.
TEST_F(Signal, FilesGiveTheirPlacesInTheListBack) {
    for (int i = 0; i < 600; ++i) {
        zyr::SafeFile file(path("a.xyz"));
        if (i % 2 == 0) file.commit();
    }
    EXPECT_EQ(filesHere(), 1u);
}

/// The program itself, in the middle of a long write.
class SignalWhileWriting : public Signal {
protected:
    void SetUp() override {
        std::string many;
        for (int i = 0; i < 200000; ++i) many += std::to_string(i) + " 0.123456789 3\n";
        test::writeText(path("in.xyz"), many);
    }

    bool isWriting() const { return test::hasHiddenFiles(path(".")); }

    pid_t start(const std::string& arguments) const {
        const pid_t program = fork();
        if (program != 0) return program;
        execl("/bin/sh", "sh", "-c",
              ("cd " + path(".") + " && exec " ZYR_TOOL " " + arguments + " >out.txt").c_str(),
              nullptr);
        _exit(99);
    }

    /// Gives the status of the process; the signal comes once a temporary file is there.
    int endAtWrite(const std::string& arguments, int signal) const {
        const pid_t program = start(arguments);
        int status = 0;
        while (waitpid(program, &status, WNOHANG) == 0) {
            if (isWriting()) kill(program, signal);
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        return status;
    }

    /// What the program leaves in the file when nothing ends it.
    std::string whole(const std::string& arguments, const std::string& file) const {
        waitpid(start(arguments), nullptr, 0);
        return test::readText(path(file));
    }

    /// The file is the one that the program writes.
    void expectNoTrace(const std::string& arguments, const std::string& file) const {
        test::writeText(path("out.txt"), "");
        // A write may be over before the signal comes; then another run is needed.
        for (int tries = 0; tries < 20; ++tries) {
            test::writeText(path(file), "precious");
            const std::size_t before = filesHere();
            const int status = endAtWrite(arguments, SIGTERM);
            EXPECT_FALSE(isWriting());
            if (!WIFSIGNALED(status)) continue;
            EXPECT_EQ(WTERMSIG(status), SIGTERM);
            const std::string left = test::readText(path(file));
            if (left == "precious") {
                EXPECT_EQ(filesHere(), before);
                return;
            }
            EXPECT_TRUE(left == whole(arguments, file));
        }
        FAIL() << "no signal came in time";
    }
};

TEST_F(SignalWhileWriting, EndsAConversionWithoutATrace) {
    expectNoTrace("convert in.xyz old.csv", "old.csv");
}

TEST_F(SignalWhileWriting, EndsADemoWithoutATrace) {
    expectNoTrace("demo -o .", "demo.zpt");
}

TEST_F(SignalWhileWriting, KilledDemoLeavesTheOldFiles) {
    test::writeText(path("demo.zpt"), "precious");
    EXPECT_TRUE(WIFSIGNALED(endAtWrite("demo -o .", SIGKILL)));
    EXPECT_EQ(test::readText(path("demo.zpt")), "precious");
}

TEST_F(SignalWhileWriting, EndsARenderingWithoutATrace) {
    expectNoTrace("render in.xyz old.png --size 4000x3000", "old.png");
}

}  // namespace
