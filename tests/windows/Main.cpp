#include <gtest/gtest.h>

#include <windows.h>

// A host that knows nothing of what its classes are made of. Each test is a process of its own
// (tests/windows/run), as a process has one user interface thread and one such library.
int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
