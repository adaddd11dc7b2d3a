// An add-on's request for a point, answered in the plan. The add-on is the gallery's probe: what the test gives it runs
// inside its menu command.

#include "Desk.hpp"
#include "HostTable.hpp"
#include "desktop/QtText.hpp"
#include "desktop/plan/PlanPanel.hpp"
#include "support/Places.hpp"

#include <dlfcn.h>
#include <QLabel>
#include <QMenuBar>

namespace desktop_tests {

namespace {

const QString Wall = QStringLiteral("4B77F0F7-86AA-47AF-8EC8-2D488F3BA8D9");

/// A function that the probe's image exports.
template <class Function>
Function* exported(const char* name) {
    const std::string image = testing_support::galleryAddOn("Probe.bundle/Contents/Linux/Probe").string();
    void* handle = dlopen(image.c_str(), RTLD_NOW | RTLD_NOLOAD);
    EXPECT_NE(handle, nullptr) << "the probe is not loaded";
    auto* function = reinterpret_cast<Function*>(dlsym(handle, name));
    dlclose(handle);
    return function;
}

}  // namespace

class PointRequest : public Desk {
protected:
    void SetUp() override {
        Desk::SetUp();
        if (IsSkipped()) return;
        start(testing_support::galleryAddOn("Probe.bundle"));
        openSample();
        window().plan().showElement(window().document().model()->find(*desktop::guidFromText(Wall)));
        EXPECT_SOON(view().complete());
    }
    desktop::PlanView& view() { return *window().plan().view(); }

    /// A place in the view where a click hits the wall.
    QPoint placeOfWall() {
        const auto wanted = window().document().model()->find(*desktop::guidFromText(Wall));
        for (int y = 0; y < view().height(); y += 2) {
            for (int x = 0; x < view().width(); x += 2) {
                if (view().hit(view().viewport().toModel(QPointF(x, y)), false) == wanted) return {x, y};
            }
        }
        ADD_FAILURE() << "the wall is not in sight";
        return {};
    }

    /// Lets the add-on ask in its command, which is picked by mouse, and the user act while the plan waits.
    GSErrCode ask(const char* prompt, API_GetPointType& request, const std::function<void()>& user) {
        GSErrCode answer = NoError;
        exported<void(std::function<void()>)>("setTest")([&] {
            using Interface = HostSlotFunction<HostSlot::Interface>::Type;
            const HostFunction* table = exported<const HostFunction*()>("givenTable")();
            CHTruncate(prompt, request.prompt, sizeof request.prompt);
            whenAsked(user);
            answer = reinterpret_cast<Interface>(table[static_cast<int>(HostSlot::Interface)])(
                exported<void*()>("givenClient")(), APIIo_GetPoint, &request, nullptr, nullptr);
        });
        QAction* menu = window().menuBar()->actions().at(3);
        pick(menu->text(), menu->menu()->actions().at(0)->text());
        exported<void(std::function<void()>)>("setTest")({});
        return answer;
    }

private:
    void whenAsked(const std::function<void()>& user) {
        QTimer::singleShot(20, &window(), [this, user] { window().plan().picking() ? user() : whenAsked(user); });
    }
};

TEST_F(PointRequest, ClickGivesThePointAndTheElementHit) {
    const QPoint place = placeOfWall();
    const QPointF point = view().viewport().toModel(place);
    API_GetPointType request{};
    ASSERT_EQ(ask("Click the wall", request, [&] { clickAt(view(), place); }), NoError);
    EXPECT_NEAR(request.pos.x, point.x(), 1e-6);
    EXPECT_NEAR(request.pos.y, point.y(), 1e-6);
    EXPECT_NE(request.neig.neigID, 0);
    const model::Guid hit = *desktop::guidFromText(Wall);
    EXPECT_TRUE(std::equal(hit.begin(), hit.end(), std::begin(request.neig.guid.bytes)));
}

TEST_F(PointRequest, ClickIntoEmptySpaceGivesAPointAndNoElement) {
    API_GetPointType request{};
    ASSERT_EQ(ask("Anywhere", request, [&] { clickAt(view(), {3, 3}); }), NoError);
    EXPECT_EQ(request.neig.neigID, 0);
}

TEST_F(PointRequest, PromptStandsInThePlanUntilTheAnswer) {
    auto* shown = view().findChild<QLabel*>(QStringLiteral("planPrompt"));
    API_GetPointType request{};
    ask("Click the wall", request, [&] {
        EXPECT_TRUE(shown->isVisible());
        EXPECT_TRUE(shown->text().startsWith(QStringLiteral("Click the wall")));
        clickAt(view(), {3, 3});
    });
    EXPECT_FALSE(shown->isVisible());
}

TEST_F(PointRequest, EscapeCancels) {
    API_GetPointType request{};
    EXPECT_EQ(ask("Anywhere", request, [&] { press(window(), Qt::Key_Escape); }), APIERR_CANCEL);
    EXPECT_FALSE(window().plan().picking());
}

TEST_F(PointRequest, DragPansInTheMidstOfARequest) {
    API_GetPointType request{};
    const QPointF before = view().viewport().center;
    ask("Anywhere", request, [&] {
        const QPoint from = view().mapTo(&window(), QPoint(100, 100));
        QTest::mousePress(window().windowHandle(), Qt::LeftButton, {}, from);
        QTest::mouseMove(window().windowHandle(), from + QPoint(20, 0));
        QTest::mouseMove(window().windowHandle(), from + QPoint(60, 30));
        QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, {}, from + QPoint(60, 30));
        EXPECT_TRUE(window().plan().picking());
        EXPECT_NE(view().viewport().center, before);
        clickAt(view(), {3, 3});
    });
}

}  // namespace desktop_tests
