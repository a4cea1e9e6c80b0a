#include <set>
#include <thread>

#include "frame/err.h"
#include "frame/error_table.h"
#include "frame/fatal_report.h"
#include "frame/memory.h"
#include "frame/memory_hooks.h"
#include "frame/text.h"
#include "frame/thread_record.h"
#include "frame/wipe.h"
#include "platform/platform.h"
#include "support/death.h"
#include "support/unit_test.h"

using namespace zul;

TEST(ErrorState, KeepsTheFirstCodeAsAPositiveNumber) {
    err_clear();
    EXPECT_EQ(err_record(0), 0);
    EXPECT_EQ(err_record(-6), -6);
    EXPECT_EQ(err_record(30), 30);
    EXPECT_EQ(err_code(), 6);
    err_clear();
    EXPECT_EQ(err_code(), 0);
}

TEST(ErrorState, JoinsTextsAndCutsTheWhole) {
    err_clear();
    err_add_text("first %d", 1);
    EXPECT_STREQ(err_text(), "first 1");
    err_add_text("second");
    EXPECT_STREQ(err_text(), "first 1; second");
    err_set_text("%s", "anew");
    EXPECT_STREQ(err_text(), "anew");

    const std::string longName(10000, 'n');
    err_add_text("Cannot open file '%s'", longName.c_str());
    EXPECT_EQ(strlen(err_text()), 511u);
    err_add_text("more");
    EXPECT_EQ(strlen(err_text()), 511u);
    EXPECT_EQ(std::string(err_text()).substr(0, 27), "anew; Cannot open file 'nnn");
    err_set_text("short"); // what stood behind it is gone, not hidden
    EXPECT_EQ(std::count(err_text(), err_text() + kErrorTextSize, '\0'), kErrorTextSize - 5);
    err_clear();
    EXPECT_EQ(std::count(err_text(), err_text() + kErrorTextSize, '\0'), kErrorTextSize);
}

TEST(ErrorTable, HasEachCodeOnceInItsPlace) {
    std::set<int> codes;
    std::set<std::string> names;
    for (const ErrorRow& row : kErrorTable) {
        EXPECT_TRUE(codes.insert(row.code).second) << row.code;
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_EQ(error_lookup(row.code), &row);
    }
    for (const int gap : {10, 31, 32, 38, 200, 206, 209, 215, 298, 300, -1})
        EXPECT_EQ(error_lookup(gap), nullptr) << gap;
}

TEST(Text, CopyAndAppendKeepWithinTheirRoom) {
    const struct {
        const char* before;
        const char* src;
        int size, copied;
        const char* afterCopy;
        int appended;
        const char* afterAppend;
    } cases[] = {
        {"ab", "cdef", 16, 4, "cdef", 6, "abcdef"}, {"ab", "cdef", 5, 4, "cdef", 6, "abcd"},
        {"ab", "cdef", 3, 4, "cd", 6, "ab"},        {"ab", "cdef", 1, 4, "", 6, "ab"},
        {"ab", "cdef", 0, 0, "ab", 0, "ab"},        {"ab", "", 16, 0, "", 2, "ab"},
        {"ab", nullptr, 16, 0, "ab", 0, "ab"},      {"ab", "cdef", -1, 0, "ab", 0, "ab"},
    };
    for (const auto& c : cases) {
        char room[17];
        strcpy(room, c.before);
        EXPECT_EQ(str_copy(room, c.src, c.size), c.copied);
        EXPECT_STREQ(room, c.afterCopy);
        strcpy(room, c.before);
        EXPECT_EQ(str_append(room, c.src, c.size), c.appended);
        EXPECT_STREQ(room, c.afterAppend);
    }
    EXPECT_EQ(str_copy(nullptr, "a", 5), 0);
    EXPECT_EQ(str_append(nullptr, "a", 5), 0);
    EXPECT_EQ(str_length(nullptr), 0);
}

namespace {

constexpr uint8_t kPlanted[16] = {0xDE, 0xAD, 0x51, 0xEC, 0x3E, 0x75, 0xBE, 0xEF,
                                  0xDE, 0xAD, 0x51, 0xEC, 0x3E, 0x75, 0xBE, 0xEF};
int freedBlocks, plantedSeen;

void look_at_freed(void* block) {
    freedBlocks++;
    // Every block of these tests is at least as long as the pattern.
    if (memcmp(block, kPlanted, sizeof kPlanted) == 0)
        plantedSeen++;
}

class Freed : public testing::Test {
  protected:
    void SetUp() override {
        freedBlocks = plantedSeen = 0;
        memory_set_hooks({nullptr, look_at_freed});
    }
    void TearDown() override { memory_set_hooks({}); }
};

} // namespace

TEST_F(Freed, OwnersWipeWhatTheyRelease) {
    {
        SecretBuffer buffer(64);
        memcpy(buffer.data(), kPlanted, sizeof kPlanted);
        buffer.shrink(4); // the bytes cut off are secrets still
        SecretBuffer moved(std::move(buffer));
        EXPECT_EQ(freedBlocks, 0);
    }
    void* block = emalloc(sizeof kPlanted);
    memcpy(block, kPlanted, sizeof kPlanted);
    EXPECT_EQ(egrow(block, sizeof kPlanted, sizeof kPlanted), block);
    block = egrow(block, 4096, sizeof kPlanted);
    EXPECT_EQ(memcmp(block, kPlanted, sizeof kPlanted), 0);
    EXPECT_EQ(freedBlocks, 2);
    EXPECT_EQ(plantedSeen, 0);
    efree(block); // efree alone does not wipe: the hook would have seen it
    EXPECT_EQ(plantedSeen, 1);
}

TEST_F(Freed, ARecordIsWipedWithItsThread) {
    std::thread([] {
        memcpy(thread_record(RecordPath::error)->errorText, kPlanted, sizeof kPlanted);
    }).join();
    EXPECT_GE(freedBlocks, 1);
    EXPECT_EQ(plantedSeen, 0);
}

TEST(Wipe, ReachesEveryByteAndNoOther) {
    for (const size_t length : {0u, 1u, 7u, 255u, 256u, 257u, 1000u, 300'000u}) {
        std::vector<uint8_t> bytes(length + 2, 0xA5);
        wipe_bytes(bytes.data() + 1, length);
        EXPECT_EQ(bytes.front(), 0xA5);
        EXPECT_EQ(bytes.back(), 0xA5);
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 0), static_cast<long>(length));
    }
    wipe_bytes(nullptr, 10);
}

TEST(Memory, RequestsOfNothingAreServedAndCounted) {
    const long before = live_blocks();
    void* blocks[] = {emalloc(0), ecalloc(0, 5), ecalloc(5, 0), estrdup("")};
    EXPECT_EQ(live_blocks(), before + 4);
    for (void* block : blocks)
        efree(block);
    efree(nullptr);
    EXPECT_EQ(live_blocks(), before);
}

TEST(MemoryDeathTest, ReportsAndEndsTheProcessWhenItCannotServe) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_REPORTED_END(emalloc(kMaxAllocation + 1), "malloc request is too big\\.");
    EXPECT_REPORTED_END(ecalloc(1, kMaxAllocation + 1), "calloc request is too big\\.");
    EXPECT_REPORTED_END(ecalloc(kMaxAllocation + 1, 1), "calloc request is too big\\.");
    const MemoryHooks none{[](size_t) { return true; }, nullptr};
    EXPECT_REPORTED_END((memory_set_hooks(none), emalloc(1)), "malloc failed to allocate memory\\.");
    EXPECT_REPORTED_END((memory_set_hooks(none), ecalloc(1, 1)), "calloc failed to allocate memory\\.");
    EXPECT_REPORTED_END((memory_set_hooks(none), estrdup("a")), "estrdup failed to allocate memory\\.");
}

TEST(ThreadRecord, IsEnteredAndLeftWithItsThread) {
    const RecordTableCounts before = record_table_counts();
    std::thread([&] {
        err_record(-6);
        EXPECT_EQ(record_table_counts().live, before.live + 1);
        EXPECT_EQ(record_table_counts().made, before.made + 1);
        record_release(); // as the loader does where the system has no callback of its own
    }).join();
    EXPECT_EQ(record_table_counts().live, before.live);
    EXPECT_NE(err_code(), 6);
}

TEST(ThreadRecord, FallsBackOnASharedOneWithoutMemory) {
    std::thread([] {
        memory_set_hooks({[](size_t) { return true; }, nullptr});
        EXPECT_EQ(err_record(-30), -30);
        EXPECT_EQ(err_code(), 30);
        EXPECT_NE(thread_record(RecordPath::generator), thread_record(RecordPath::error));
        err_clear();
        memory_set_hooks({});
        EXPECT_EQ(err_code(), 0); // a record of its own now that memory is back
        record_release();
    }).join();
}

// A thread whose slot is emptied looks to the library like a new one, which spares the test 1,100 threads.
TEST(ThreadRecord, MoreOfThemThanPlacesAllWork) {
    const RecordTableCounts before = record_table_counts();
    const long blocks = live_blocks();
    void* own = platform::slot_get();
    std::vector<ThreadRecord*> records;
    const int total = kRecordTableSize - static_cast<int>(before.live) + 8;
    for (int i = 0; i < total; i++) {
        platform::slot_set(nullptr);
        err_record(i + 1);
        records.push_back(thread_record(RecordPath::error));
    }
    EXPECT_EQ(record_table_counts().live, kRecordTableSize);
    EXPECT_EQ(record_table_counts().highestIndex, kRecordTableSize - 1);
    EXPECT_EQ(record_table_counts().made, before.made + total);
    for (int i = 0; i < total; i++) {
        platform::slot_set(records[static_cast<size_t>(i)]);
        EXPECT_EQ(err_code(), i + 1);
        record_release();
    }
    platform::slot_set(own);
    EXPECT_EQ(record_table_counts().live, before.live);
    EXPECT_EQ(live_blocks(), blocks);
}
