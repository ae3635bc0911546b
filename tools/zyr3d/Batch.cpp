#include "Batch.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <new>
#include <opencv2/core.hpp>
#include <system_error>
#include <thread>

#include "Console.h"
#include "Outcome.h"
#include "Progress.h"

namespace zyr {
namespace {

class Run {
public:
    Run(const std::vector<std::string>& names, const Batch::Work& work)
        : names_(names), work_(work), items_(names.size()), progress_(names.size()) {}

    /// The calling thread works too, so that all gets done where no other thread can be had.
    int finish(int jobs) {
        std::vector<std::thread> helpers;
        try {
            for (int i = 1; i < jobs && helpers.size() + 1 < items_.size(); ++i)
                helpers.emplace_back([this] { takeItems(); });
        } catch (const std::system_error&) {
        }
        takeItems();
        for (std::thread& helper : helpers) helper.join();
        if (trouble_) std::rethrow_exception(trouble_);
        return worst_;
    }

private:
    struct Item {
        Output output;
        int code = kGood;
        bool isDone = false;
    };

    void takeItems() try {
        while (!isStopped_) {
            const std::size_t i = next_++;
            if (i >= items_.size()) return;
            items_[i].code = runOne(i);
            printDone(i);
        }
    } catch (...) {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (!trouble_) trouble_ = std::current_exception();
        isStopped_ = true;
    }

    int runOne(std::size_t i) {
        Output& output = items_[i].output;
        try {
            return work_(i, output);
        } catch (const UsageTrouble& trouble) {
            output.complain(trouble.what());
            return kUsage;
        } catch (const std::exception&) {
            output.complain(troubleText(names_[i]));
            return kFileTrouble;
        }
    }

    /// Prints what is due now that this item is done.
    void printDone(std::size_t i) {
        const std::lock_guard<std::mutex> lock(mutex_);
        items_[i].isDone = true;
        progress_.advance();
        const auto hidden = progress_.hide();
        for (; printed_ < items_.size() && items_[printed_].isDone; ++printed_) {
            Item& item = items_[printed_];
            worst_ = std::max(worst_, item.code);
            printOut(item.output.out.str());
            printError(item.output.err.str());
            item.output = Output();
        }
    }

    const std::vector<std::string>& names_;
    const Batch::Work& work_;
    std::vector<Item> items_;
    Progress progress_;
    std::atomic<std::size_t> next_{0};
    std::atomic<bool> isStopped_{false};
    std::mutex mutex_;  ///< for what follows
    std::size_t printed_ = 0;
    int worst_ = kGood;
    std::exception_ptr trouble_;
};

}  // namespace

std::string troubleText(const std::string& name) try { throw; } catch (const FileTrouble& trouble) {
    return trouble.what();
} catch (const UsageTrouble& trouble) {
    return trouble.what();
} catch (const std::bad_alloc&) {
    return name + ": out of memory";
} catch (const cv::Exception& error) {
    return name + ": " + (error.code == cv::Error::StsNoMem ? "out of memory" : error.err);
} catch (const std::exception& error) {
    return name + ": " + error.what();
}

void Output::complain(const std::string& text) {
    err << errorLine(text);
}

void Batch::addOption(CLI::App& command) {
    command.add_option("-j,--jobs", jobs, "Files to work on at once [1]")
        ->type_name("N")
        ->check(CLI::Range(1, 256).description(""));
}

int Batch::run(const std::vector<std::string>& names, const Work& work) const {
    return Run(names, work).finish(jobs);
}

}  // namespace zyr
