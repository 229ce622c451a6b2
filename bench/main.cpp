// Runs the benchmarks inside a wx application.

#include <benchmark/benchmark.h>
#include <wx/app.h>

namespace {

class BenchApp : public wxApp
{
public:
    bool OnInit() override
    {
        SetExitOnFrameDelete(false);
        return true;
    }

    int OnRun() override
    {
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    }
};

} // namespace

wxIMPLEMENT_APP_NO_MAIN(BenchApp);

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    int wxArgc = 1;
    return wxEntry(wxArgc, argv);
}
