#include "editors/screens/EditorScreens.h"

#include "editors/EnvelopeGraph.h"
#include "editors/FloatingSlider.h"
#include "editors/Frames.h"
#include "editors/Navigation.h"
#include "editors/ValueGestures.h"
#include "model/Kind.h"
#include "model/ParamTables.h"
#include "support/TestModel.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <memory>

namespace quillon {
namespace {

constexpr int kOsc1Type = 174;
constexpr int kBrassModelType = 9;  // an OSC1 Type whose setting block differs from the standard one

// The patch screen as the program starts it, with the envelope rule in place.
struct PatchScreen : TestModel {
    PatchScreen()
    {
        applyStartUpView(model);
        installEnvelopeRule(model);
        editor = std::make_unique<EditorScreens>(model);
        editor->resize(1300, 760);
        editor->show();
    }

    template <typename T>
    T* control(const QString& name)
    {
        T* found = editor->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    template <typename T>
    T* row(const char* prefix, int r)
    {
        return control<T>(QString("%1_%2").arg(prefix).arg(r));
    }

    // A click on the node of trvSection with this key.
    void clickNode(const std::string& key)
    {
        auto* tree = control<QTreeWidget>("trvSection");
        QTreeWidgetItemIterator it(tree);
        for (; *it != nullptr; ++it) {
            if ((*it)->data(0, Qt::UserRole).toString().toStdString() != key)
                continue;
            tree->scrollToItem(*it);
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(*it).center());
            return;
        }
        ADD_FAILURE() << "no node " << key;
    }

    int current(int param) { return model.buffers.of(kPatch).current[static_cast<std::size_t>(param)]; }
    int rowParam(int r) const { return model.layout.RowParam[static_cast<std::size_t>(r)]; }
    const RowView& rowView(int r) const { return model.layout.rows[static_cast<std::size_t>(r)]; }

    // The first visible row of frame 1 whose range holds `value` and whose
    // value is another.
    int rowThatCanTake(int value)
    {
        for (int r = 0; r < kFrameRows; ++r) {
            const RowView& v = rowView(r);
            if (v.visible && !v.hard && v.spinMin <= value && value <= v.spinMax && v.value != value)
                return r;
        }
        return -1;
    }

    std::unique_ptr<EditorScreens> editor;
};

// The key of the tree's root whose section holds the parameter.
std::string sectionKeyOf(int param)
{
    const auto& sections = paramTables().patchSections;
    for (std::size_t i = 1; i <= 32 && i < sections.size(); ++i) {
        if (sections[i].firstParam <= param && param <= sections[i].lastParam) {
            std::string key = "S";
            key += std::to_string(i);
            return key;
        }
    }
    return {};
}

TEST(EditorScreens, TreeNodeClickFillsFrameOneWithTheNamesAndValuesOfItsRows)
{
    PatchScreen t;
    t.clickNode("SS13");  // OSC1 Setting
    ASSERT_TRUE(t.rowView(0).visible);
    EXPECT_TRUE(t.control<QWidget>("fraParams_1")->isVisible());
    int shown = 0;
    for (int r = 0; r < kFrameRows; ++r) {
        if (!t.rowView(r).visible) {
            EXPECT_FALSE(t.row<QLineEdit>("txtParamVal", r)->isVisible());
            continue;
        }
        ++shown;
        const ParamDef& def = paramTables().patch[static_cast<std::size_t>(t.rowParam(r))];
        EXPECT_EQ(t.row<QLabel>("lblParamName", r)->text().toStdString(), def.name);
        EXPECT_EQ(t.row<QLineEdit>("txtParamVal", r)->text(), QString::number(t.current(t.rowParam(r))));
        EXPECT_TRUE(t.row<QLineEdit>("txtParamVal", r)->isVisible());
    }
    EXPECT_GT(shown, 1);
    EXPECT_FALSE(t.control<QLabel>("lblSubsect_1")->text().isEmpty());
}

TEST(EditorScreens, TypingIntoAValueBoxStoresIntoCurrentAndShowsTheDecode)
{
    PatchScreen t;
    t.clickNode(sectionKeyOf(kOsc1Type));
    const int r = t.rowThatCanTake(1);
    ASSERT_GE(r, 0);
    const int param = t.rowParam(r);
    auto* box = t.row<QLineEdit>("txtParamVal", r);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "1");
    EXPECT_EQ(t.current(param), 1);
    EXPECT_EQ(box->text(), "1");
    EXPECT_EQ(t.row<QLabel>("lblParamDecode", r)->text().toStdString(), t.rowView(r).decode);
    EXPECT_EQ(t.row<QSpinBox>("updParamVal", r)->value(), 1);
}

TEST(EditorScreens, RightPressInTheSpinsUpperHalfStepsUpByTheBigStep)
{
    PatchScreen t;
    t.clickNode("SS13");
    int r = -1;
    for (int i = 0; i < kFrameRows && r < 0; ++i) {
        const RowView& v = t.rowView(i);
        if (v.visible && !v.hard && bigStep(v.value, v.spinMin, v.spinMax, true) != v.value)
            r = i;
    }
    ASSERT_GE(r, 0);
    const RowView before = t.rowView(r);
    auto* spin = t.row<QSpinBox>("updParamVal", r);
    QTest::mousePress(spin, Qt::RightButton, {}, QPoint(spin->width() / 2, 2));
    const int expected = bigStep(before.value, before.spinMin, before.spinMax, true);
    EXPECT_GT(expected, before.value);
    EXPECT_EQ(t.current(t.rowParam(r)), expected);
    EXPECT_EQ(t.row<QLineEdit>("txtParamVal", r)->text(), QString::number(expected));
}

TEST(EditorScreens, SliderLinkPressShowsTheFloatingSliderAndMovingOverItSetsTheValue)
{
    PatchScreen t;
    t.clickNode("SS13");
    int r = -1;
    for (int i = 0; i < kFrameRows && r < 0; ++i) {
        const RowView& v = t.rowView(i);
        if (v.visible && !v.hard && v.spinMax - v.spinMin >= 10)
            r = i;
    }
    ASSERT_GE(r, 0);
    auto* slider = t.control<QSlider>("sldFloating_1");
    EXPECT_FALSE(slider->isVisible());
    QTest::mousePress(t.row<QToolButton>("cmdSliderLink", r), Qt::LeftButton);
    ASSERT_TRUE(slider->isVisible());

    const RowView before = t.rowView(r);
    const int xTwips = kSliderTrackStart + kSliderTravel;  // the end of the track: the maximum
    const QPointF at(xTwips / 15.0 * slider->logicalDpiY() / 96.0, slider->height() / 2.0);
    QMouseEvent move(QEvent::MouseMove, at, slider->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(slider, &move);
    EXPECT_EQ(t.current(t.rowParam(r)), before.spinMax);
    EXPECT_EQ(t.row<QLineEdit>("txtParamVal", r)->text(), QString::number(before.spinMax));
    EXPECT_EQ(slider->value(), before.spinMax);

    QTest::mouseRelease(slider, Qt::LeftButton, {}, at.toPoint());
    EXPECT_FALSE(slider->isVisible());
}

TEST(EditorScreens, MovingOnePixelWithTheButtonHeldOnTheSliderLinkTakesTheValueFromTheSlider)
{
    PatchScreen t;
    t.clickNode("SS13");
    int r = -1;
    for (int i = 0; i < kFrameRows && r < 0; ++i) {
        const RowView& v = t.rowView(i);
        if (v.visible && !v.hard && v.spinMax - v.spinMin >= 10)
            r = i;
    }
    ASSERT_GE(r, 0);
    auto* link = t.row<QToolButton>("cmdSliderLink", r);
    auto* slider = t.control<QSlider>("sldFloating_1");
    const QPoint pressed = link->rect().center();
    QTest::mousePress(link, Qt::LeftButton, {}, pressed);
    ASSERT_TRUE(slider->isVisible());

    // The link button holds the mouse: the move reaches it, one pixel on,
    // with the left button still down.
    const QPointF onePixel = QPointF(pressed) + QPointF(1, 0);
    QMouseEvent nudge(QEvent::MouseMove, onePixel, link->mapToGlobal(onePixel), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(link, &nudge);
    EXPECT_TRUE(slider->isVisible());
    const RowView before = t.rowView(r);
    EXPECT_GE(t.current(t.rowParam(r)), before.spinMin);
    EXPECT_LE(t.current(t.rowParam(r)), before.spinMax);

    // Over the far end of the track the value is the maximum, wherever the
    // pointer is reported from.
    const int xTwips = kSliderTrackStart + kSliderTravel;
    const QPointF trackEnd(xTwips / 15.0 * slider->logicalDpiY() / 96.0, slider->height() / 2.0);
    const QPointF overEnd = link->mapFromGlobal(slider->mapToGlobal(trackEnd));
    QMouseEvent drag(QEvent::MouseMove, overEnd, link->mapToGlobal(overEnd), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(link, &drag);
    EXPECT_EQ(t.current(t.rowParam(r)), before.spinMax);
    EXPECT_EQ(t.row<QLineEdit>("txtParamVal", r)->text(), QString::number(before.spinMax));

    QTest::mouseRelease(link, Qt::LeftButton, {}, overEnd.toPoint());
    EXPECT_FALSE(slider->isVisible());
}

TEST(EditorScreens, NewOsc1TypeInFrameOneRedrawsTheSettingRowsOfFrameTwo)
{
    PatchScreen t;
    t.clickNode("SS13");                    // OSC1 Setting into frame 1 ...
    t.clickNode(sectionKeyOf(kOsc1Type));   // ... moves to frame 2 as OSC1 comes in
    ASSERT_EQ(t.model.layout.patchFrames[2].Subsection, 13);
    int r = -1;
    for (int i = 0; i < kFrameRows; ++i)
        if (t.rowParam(i) == kOsc1Type)
            r = i;
    ASSERT_GE(r, 0);
    ASSERT_NE(t.current(kOsc1Type), kBrassModelType);
    const QString before = t.row<QLabel>("lblParamName", 15)->text();

    auto* box = t.row<QLineEdit>("txtParamVal", r);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::number(kBrassModelType));
    ASSERT_EQ(t.current(kOsc1Type), kBrassModelType);

    const QString after = t.row<QLabel>("lblParamName", 15)->text();
    EXPECT_NE(after, before);
    EXPECT_EQ(after.toStdString(), t.rowView(15).name);
    EXPECT_EQ(t.control<QLabel>("lblSubsect_2")->text().toStdString(), t.model.layout.frames[2].label);
}

TEST(EditorScreens, EnvelopeGraphShowsForEG1AndDraggingAPointChangesCurrent)
{
    PatchScreen t;
    t.model.settings.graphicEnvelope = true;
    t.clickNode("S2");  // EG1
    ASSERT_TRUE(t.model.layout.parts.fraEnvelope);
    auto* graph = t.control<QWidget>("fraEnvelope");
    EXPECT_TRUE(graph->isVisible());
    EXPECT_EQ(graph->parentWidget(), t.control<QWidget>("fraParams_2")->parentWidget());

    auto* picture = t.control<QWidget>("picFrame");
    const double k = picture->logicalDpiY() / 96.0 / 15.0;
    const EnvelopeCircle& circle = t.model.envelope.shaCircle[1];
    const QPoint from(static_cast<int>((circle.left + EnvelopeGraph::CircleRadius) * k),
                      static_cast<int>((circle.top + EnvelopeGraph::CircleRadius) * k));
    const ParamValues before = t.model.buffers.of(kPatch).current;

    QTest::mousePress(picture, Qt::LeftButton, {}, from);
    ASSERT_EQ(t.model.envelope.Grabbed, 1);
    const QPoint to = from + QPoint(20, -20);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), picture->mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(picture, &move);
    EXPECT_TRUE(t.control<QLabel>("lblTimeVal")->isVisible());
    QTest::mouseRelease(picture, Qt::LeftButton, {}, to);

    EXPECT_NE(t.model.buffers.of(kPatch).current, before);
    EXPECT_EQ(t.model.envelope.Grabbed, -1);
}

TEST(EditorScreens, GroupPanelShowsInGroupModeAndItsLabelsOpenTheirGroups)
{
    PatchScreen t;
    clickFrameToolbarButton(t.model, "spsg");
    auto* panel = t.control<QWidget>("fraPatchGroup");
    EXPECT_TRUE(panel->isVisible());
    EXPECT_FALSE(t.control<QWidget>("trvSection")->isVisible());
    auto* group = t.control<QLabel>("lblGroup_1");
    EXPECT_EQ(group->text().toStdString(), std::string(patchGroup(1).caption));
    QTest::mouseClick(group, Qt::LeftButton);
    EXPECT_EQ(t.control<QLabel>("lblGroupSelected")->text().toStdString(), std::string(patchGroup(1).caption));
    EXPECT_TRUE(t.control<QWidget>("fraParams_1")->isVisible());
    EXPECT_NE(t.model.layout.patchFrames[1].Subsection, 0);
}

}  // namespace
}  // namespace quillon
