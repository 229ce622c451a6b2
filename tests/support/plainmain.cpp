// The main function of tests that need neither a display nor wx.
#include "support/runtests.h"

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    return vela7::test::RunTests();
}
