// The toolkit's clipboard beside wx's own and that of other programs.
#include "support/process.h"
#include "support/waits.h"
#include "vela7/wxclipboard.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <wx/clipbrd.h>

using namespace vela7;
using namespace vela7::test;

namespace {
const auto Ours = [] { return static_cast<CwxClipboard*>(GetCurrentSystem()->TakeClipboard()); };
const auto Owner = [] { return gdk_selection_owner_get(GDK_SELECTION_CLIPBOARD); };

struct Hearing : CSubscriber<IClipboardChangeNotify>
{
    void OnClipboardChange(CEvent* event) override { event->passOn = ++count < 2 && event->sender == Ours(); }
    int count = 0;
};
} // namespace

TEST(Clipboard, ExchangesTextWithOtherPrograms)
{
    const std::pair<const char*, const char*> offers[] = {
        {"printf 'na\xc3\xaf\nve' | xclip -selection clipboard", "na_\nve"}, // wx2vela's ASCII
        {"printf two | xclip -selection clipboard -t STRING", "two"},
        {"convert xc:red png:- | xclip -selection clipboard -t image/png", ""},
    };
    for (const auto& [command, text] : offers) {
        SCOPED_TRACE(command);
        Ours()->SetText("Gr\xc3\xbc\xc3\x9f\ndich");
        EXPECT_EQ("Gr\xc3\xbc\xc3\x9f\ndich", RunProgram({"xclip", "-o", "-selection", "clipboard"}).output);
        EXPECT_EQ("Gr__\ndich", Ours()->GetText());
        const auto lost = [us = Owner()] { return Owner() != us; };
        EXPECT_EQ(0, RunProgram({"sh", "-c", command}).exitCode);
        EXPECT_TRUE(WaitFor(lost, "the clipboard in other hands"));
        EXPECT_EQ(text, Ours()->GetText());
    }
}

TEST(Clipboard, ClearsAndLeavesAnOpenOneAlone)
{
    for (const bool byText : {true, false}) {
        Ours()->SetText("before");
        ASSERT_TRUE(wxTheClipboard->Open());
        Ours()->SetText("after"), Ours()->Clear();
        EXPECT_EQ("", Ours()->GetText());
        EXPECT_TRUE(wxTheClipboard->IsOpened());
        wxTheClipboard->Close();
        EXPECT_EQ("before", Ours()->GetText());
        byText ? Ours()->SetText("") : Ours()->Clear();
        EXPECT_EQ(byText, Owner() != nullptr);
        EXPECT_EQ("", Ours()->GetText());
    }
}

TEST(Clipboard, AsksForTheFormatsOnce)
{
    // Half a minute passes with every question to an owner that does not answer; here it is refused.
    int questions = 0;
    const auto ask =
        +[](GtkWidget*, GtkSelectionData*, guint, guint, gpointer count) { ++*static_cast<int*>(count); };
    GtkWidget* const owner = gtk_invisible_new();
    gtk_selection_add_target(owner, GDK_SELECTION_CLIPBOARD, gdk_atom_intern("TARGETS", FALSE), 0);
    g_signal_connect(owner, "selection-get", G_CALLBACK(ask), &questions);
    ASSERT_TRUE(gtk_selection_owner_set(owner, GDK_SELECTION_CLIPBOARD, GDK_CURRENT_TIME));
    EXPECT_EQ("", Ours()->GetText());
    EXPECT_EQ(1, questions);
    gtk_widget_destroy(owner);
}

TEST(Clipboard, ReportsChangesOnRequest)
{
    Hearing first, second;
    Subscribe<IClipboardChangeNotify>(*Ours(), &first);
    Subscribe<IClipboardChangeNotify>(*Ours(), &second);
    Ours()->SetText("changed"); // nothing watches
    Ours()->RaiseChangeEvent();
    Ours()->RaiseChangeEvent();
    EXPECT_EQ(2, first.count);
    EXPECT_EQ(1, second.count);
}
