#include "base/runtime_error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace velmora {
namespace {

TEST(RuntimeError, HasTheClassicDescriptionOfItsNumber) {
    const struct {
        int number;
        const char* description;
    } cases[] = {
        {5, "Invalid procedure call or argument"},
        {6, "Overflow"},
        {7, "Out of memory"},
        {9, "Subscript out of range"},
        {11, "Division by zero"},
        {13, "Type mismatch"},
        {53, "File not found"},
        {57, "Device I/O error"},
        {61, "Disk full"},
        {70, "Permission denied"},
        {71, "Disk not ready"},
        {75, "Path/File access error"},
        {76, "Path not found"},
        {380, "Invalid property value"},
        {424, "Object required"},
        {438, "Object doesn't support this property or method"},
        {440, "Automation error"},
        {35600, "Index out of bounds"},
    };
    for (const auto& [number, description] : cases) {
        EXPECT_EQ(errorDescription(number), description);
        EXPECT_EQ(RuntimeError(number).number(), number);
        EXPECT_EQ(RuntimeError(number).description(), description);
        EXPECT_STREQ(RuntimeError(number).what(), description);
    }
}

TEST(RuntimeError, HasAGeneralDescriptionForANumberWithoutOne) {
    for (int number : {0, -1, 1, 54, 1000, 35601})
        EXPECT_EQ(errorDescription(number), "Application-defined or object-defined error");
}

TEST(RuntimeError, NamesItsNumbersAsTheHandlersTestThem) {
    EXPECT_EQ(error::invalidCall, 5);
    EXPECT_EQ(error::overflow, 6);
    EXPECT_EQ(error::outOfMemory, 7);
    EXPECT_EQ(error::subscriptOutOfRange, 9);
    EXPECT_EQ(error::typeMismatch, 13);
    EXPECT_EQ(error::fileNotFound, 53);
    EXPECT_EQ(error::deviceIo, 57);
    EXPECT_EQ(error::diskFull, 61);
    EXPECT_EQ(error::permissionDenied, 70);
    EXPECT_EQ(error::diskNotReady, 71);
    EXPECT_EQ(error::pathFileAccess, 75);
    EXPECT_EQ(error::pathNotFound, 76);
    EXPECT_EQ(error::invalidPropertyValue, 380);
    EXPECT_EQ(error::objectRequired, 424);
    EXPECT_EQ(error::unsupportedMember, 438);
    EXPECT_EQ(error::automation, 440);
    EXPECT_EQ(error::indexOutOfBounds, 35600);
}

TEST(RuntimeError, KeepsADescriptionOfItsOwn) {
    const RuntimeError failure(53, "No such picture");
    EXPECT_EQ(failure.number(), 53);
    EXPECT_STREQ(failure.what(), "No such picture");
}

template <typename Exception>
RuntimeError whileHandling(const Exception& thrown) {
    try {
        throw thrown;
    } catch (...) {
        return currentRuntimeError();
    }
}

TEST(CurrentRuntimeError, IsTheRunTimeErrorBeingHandled) {
    const RuntimeError failure = whileHandling(RuntimeError(70, "The disk is locked"));
    EXPECT_EQ(failure.number(), 70);
    EXPECT_EQ(failure.description(), "The disk is locked");
}

TEST(CurrentRuntimeError, IsSevenWhenMemoryIsExhausted) {
    const RuntimeError failure = whileHandling(std::bad_alloc());
    EXPECT_EQ(failure.number(), 7);
    EXPECT_EQ(failure.description(), "Out of memory");
}

TEST(CurrentRuntimeError, IsFiveWithTheWordsOfAnyOtherException) {
    const RuntimeError failure = whileHandling(std::out_of_range("past the last row"));
    EXPECT_EQ(failure.number(), 5);
    EXPECT_EQ(failure.description(), "past the last row");
}

TEST(CurrentRuntimeError, IsFiveWithTheClassicWordsForSomethingThatHasNone) {
    const RuntimeError failure = whileHandling(42);
    EXPECT_EQ(failure.number(), 5);
    EXPECT_EQ(failure.description(), "Invalid procedure call or argument");
}

TEST(RuntimeErrorAttempt, TheStepNearestToTheErrorSaysWhatWasTried) {
    try {
        attempt("save all", "C:\\outer", [] {
            attempt("save one", "C:\\inner", [] { throw RuntimeError(error::diskFull); });
        });
        FAIL();
    } catch (RuntimeError& failure) {
        failure.noteHandler("a button");
        failure.noteHandler("a timer");
        EXPECT_EQ(failure.tried(), "save one");
        EXPECT_EQ(failure.file(), "C:\\inner");
        EXPECT_EQ(failure.handler(), "a button");
        EXPECT_EQ(failure.number(), error::diskFull);
    }
}

TEST(RuntimeErrorAttempt, AStepThatSucceedsGivesItsResult) {
    EXPECT_EQ(attempt("count", "", [] { return 3; }), 3);
}

}  // namespace
}  // namespace velmora
