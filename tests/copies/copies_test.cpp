#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// A loaded plug-in.
class Copy {
public:
    explicit Copy(std::string const& path) : library_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (library_ == nullptr) {
            ADD_FAILURE() << dlerror();
        }
    }
    Copy(Copy&& other) noexcept : library_(std::exchange(other.library_, nullptr)) {}
    Copy& operator=(Copy&&) = delete;
    ~Copy() {
        if (library_ != nullptr) {
            dlclose(library_);
        }
    }

    bool useTables(int rows) const {
        using Function = bool (*)(int);
        auto const function = reinterpret_cast<Function>(dlsym(library_, "useTables"));
        return function != nullptr && function(rows);
    }

private:
    void* library_;
};

std::size_t allocated() {
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

TEST(Copies, FiftyLoadIntoOneProcess) {
    namespace fs = std::filesystem;
    fs::path const directory = fs::path(testing::TempDir()) / ("copies-" + std::to_string(getpid()));
    fs::create_directories(directory);
    {
        std::vector<Copy> copies;
        for (int k = 0; k < 50 && !HasFailure(); ++k) {
            fs::path const path = directory / (std::to_string(k) + ".so");
            fs::copy_file(QX_COPY, path);
            copies.emplace_back(path.string());
            EXPECT_TRUE(copies.back().useTables(1'000));
        }
        std::thread([&] {
            for (Copy const& copy : copies) {
                EXPECT_TRUE(copy.useTables(1'000));
            }
        }).join();
    }
    fs::remove_all(directory);
}

TEST(Copies, LeaveNothingBehindWhenTheyAreUnloaded) {
    std::size_t before = 0;
    for (int k = 0; k < 100; ++k) {
        {
            Copy const copy(QX_COPY);
            EXPECT_TRUE(copy.useTables(20'000));
            std::thread([&] { EXPECT_TRUE(copy.useTables(1'000)); }).join();
        }
        EXPECT_EQ(dlopen(QX_COPY, RTLD_NOW | RTLD_NOLOAD), nullptr) << "it is still loaded";
        if (k == 4) { // what the C library itself sets up once is there by now
            before = allocated();
        }
    }
    EXPECT_LT(allocated(), before + 100'000);
}

} // namespace
