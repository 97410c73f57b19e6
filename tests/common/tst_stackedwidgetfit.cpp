#include "StackedWidgetFit.h"

#include "TestCase.h"

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace {

using Policy = QSizePolicy::Policy;

/// A page of a given content height, of which it tells in one of the ways that a page has.
class Page : public QWidget
{
public:
    explicit Page(Policy vertical, int height = 0)
    {
        setSizePolicy(QSizePolicy::Preferred, vertical);
        auto* box = new QVBoxLayout(this);
        box->setContentsMargins(0, 0, 0, 0);
        content = new QWidget;
        box->addWidget(content);
        setContent(height);
    }
    void setContent(int height) { content->setMinimumHeight(height); }

    QWidget* content;
    std::function<void()> onResize;

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QWidget::resizeEvent(event);
        if (const auto react = onResize)
            react();
    }
};

/// Knows its height for a width without a layout.
class FlowPage : public QWidget
{
public:
    explicit FlowPage(int area)
        : content(area)
    {
        QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
        policy.setHeightForWidth(true);
        setSizePolicy(policy);
    }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return content / width; }

    int content;
};

/// Tells a height for a width although it says that it has none.
class ShyLayout : public QVBoxLayout
{
public:
    int heightForWidth(int) const override { return 77; }
    bool hasHeightForWidth() const override { return false; }
};

/// Counts the events of one type.
class Counter : public QObject
{
public:
    Counter(QObject* watched, QEvent::Type counted)
        : type(counted)
    {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == type ? 1 : 0;
        return false;
    }

    int count = 0;

private:
    QEvent::Type type;
};

/// No event more came in a round of the event loop.
bool isAtRest(const Counter& counter)
{
    const int before = counter.count;
    QApplication::processEvents();
    return counter.count == before;
}

/// A stack with one page in a window of 200 by 300.
struct Window
{
    explicit Window(QWidget* page = nullptr)
        : stack(new StackedWidgetFit(&widget))
    {
        auto* box = new QVBoxLayout(&widget);
        box->setContentsMargins(0, 0, 0, 0);
        box->addWidget(stack);
        if (page)
            stack->addWidget(page);
        widget.resize(200, 300);
    }
    void show()
    {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        QApplication::processEvents();
    }

    QWidget widget;
    StackedWidgetFit* stack;
};

using MakePage = std::function<QWidget*()>;

} // namespace

Q_DECLARE_METATYPE(MakePage)

class TestStackedWidgetFit : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void emptyStackAsksForNothing();
    void policyDecides_data();
    void policyDecides();
    void contentHeight_data();
    void contentHeight();
    void measuringKeepsThePageSize();
    void tallPageAsksForRoom();
    void recomputeUndoesLimits();
    void recomputeFitsAfterAContentChange();
    void fitSurvivesLayoutRequests();
    void fillSurvivesLayoutRequests();
    void changeOfPageFits();
    void resizeFits();
    void upwardWalkStopsAtTheScrollArea();
    void stackScrollsByItsContent();
    void pageMayRecomputeInItsResize();
    void pageMayVanishWhileMeasured();
    void destroyedPagesAreForgotten();
    void restsWhenNothingChanges();
    void stackOnAFittedPageRests();
};

void TestStackedWidgetFit::emptyStackAsksForNothing()
{
    StackedWidgetFit stack(nullptr);
    QCOMPARE(stack.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(stack.sizeHint(), QSize(0, 0));
    QCOMPARE(stack.minimumSizeHint(), QSize(0, 0));
    stack.recomputeSize();
    stack.resize(10, 10);
    QApplication::processEvents();
    QCOMPARE(stack.minimumSizeHint(), QSize(0, 0));
}

void TestStackedWidgetFit::policyDecides_data()
{
    QTest::addColumn<int>("policy");
    QTest::addColumn<bool>("fitted");
    QTest::newRow("fixed") << int(QSizePolicy::Fixed) << true;
    QTest::newRow("minimum") << int(QSizePolicy::Minimum) << true;
    QTest::newRow("maximum") << int(QSizePolicy::Maximum) << false;
    QTest::newRow("preferred") << int(QSizePolicy::Preferred) << false;
    QTest::newRow("minimum expanding") << int(QSizePolicy::MinimumExpanding) << false;
    QTest::newRow("expanding") << int(QSizePolicy::Expanding) << false;
    QTest::newRow("ignored") << int(QSizePolicy::Ignored) << false;
}

void TestStackedWidgetFit::policyDecides()
{
    QFETCH(int, policy);
    QFETCH(bool, fitted);
    auto* page = new Page(static_cast<Policy>(policy), 50);
    Window window(page);
    window.show();
    QCOMPARE(page->geometry(), QRect(0, 0, 200, fitted ? 50 : 300));
    QCOMPARE(window.stack->sizeHint(), QSize(0, 0));
    QCOMPARE(window.stack->minimumSizeHint(), QSize(0, 0));

    page->setContent(0);
    StackedWidgetFit low(nullptr);
    low.resize(200, 20);
    auto* high = new Page(static_cast<Policy>(policy), 50);
    low.addWidget(high);
    QCOMPARE(low.minimumSizeHint(), QSize(0, fitted ? 50 : 0));
    QCOMPARE(low.sizeHint(), QSize(0, 0));
}

void TestStackedWidgetFit::contentHeight_data()
{
    QTest::addColumn<MakePage>("make");
    QTest::addColumn<int>("height");
    const auto row = [](const char* name, int height, const MakePage& make) {
        QTest::newRow(name) << make << height;
    };
    const auto fitted = [](QLayout* layout) {
        auto* page = new QWidget;
        page->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        page->setLayout(layout);
        return page;
    };
    row("height for width of the page", 20, [] { return new FlowPage(4000); });
    row("no height for width: no layout", 300, [] { return new FlowPage(0); });
    row("layout's height for width", 77, [fitted] {
        auto* layout = new ShyLayout;
        layout->addWidget(new QWidget);
        return fitted(layout);
    });
    row("minimum of the layout", 60, [] { return new Page(QSizePolicy::Fixed, 60); });
    row("margins belong to the content", 60 + 3 + 4, [] {
        auto* page = new Page(QSizePolicy::Fixed, 60);
        page->setContentsMargins(1, 3, 2, 4);
        return page;
    });
    row("no layout: left alone", 300, [] {
        auto* page = new QWidget;
        page->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        return page;
    });
    row("empty layout: left alone", 300, [fitted] {
        auto* layout = new QVBoxLayout;
        layout->setContentsMargins(0, 0, 0, 0);
        return fitted(layout);
    });
}

void TestStackedWidgetFit::contentHeight()
{
    QFETCH(MakePage, make);
    QFETCH(int, height);
    QWidget* page = make();
    Window window(page);
    window.show();
    window.stack->recomputeSize();
    QCOMPARE(page->geometry(), QRect(0, 0, 200, height));
}

void TestStackedWidgetFit::measuringKeepsThePageSize()
{
    auto* page = new Page(QSizePolicy::Fixed, 60);
    StackedWidgetFit stack(nullptr);
    stack.addWidget(page);
    stack.resize(200, 30);
    page->resize(123, 45);
    QCOMPARE(stack.minimumSizeHint(), QSize(0, 60));
    QCOMPARE(page->size(), QSize(123, 45));
}

void TestStackedWidgetFit::tallPageAsksForRoom()
{
    auto* page = new Page(QSizePolicy::Minimum, 90);
    page->setMinimumHeight(1);
    StackedWidgetFit stack(nullptr);
    stack.addWidget(page);
    stack.resize(200, 40);
    stack.recomputeSize();
    QCOMPARE(stack.minimumSizeHint(), QSize(0, 90));
    QCOMPARE(page->height(), 40);
    stack.resize(200, 89);
    QCOMPARE(stack.minimumSizeHint(), QSize(0, 90));
    stack.resize(200, 90);
    QCOMPARE(stack.minimumSizeHint(), QSize(0, 0));
    stack.resize(200, 200);
    QCOMPARE(stack.minimumSizeHint(), QSize(0, 0));
}

void TestStackedWidgetFit::recomputeUndoesLimits()
{
    StackedWidgetFit stack(nullptr);
    stack.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    stack.setMinimumHeight(5);
    stack.setMaximumHeight(50);
    stack.recomputeSize();
    QCOMPARE(stack.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(stack.minimumHeight(), 0);
    QCOMPARE(stack.maximumHeight(), 16777215);
}

void TestStackedWidgetFit::recomputeFitsAfterAContentChange()
{
    auto* page = new Page(QSizePolicy::Minimum, 50);
    Window window(page);
    window.show();
    page->setContent(120);
    window.stack->recomputeSize();
    QCOMPARE(page->geometry(), QRect(0, 0, 200, 120));
    page->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    window.stack->recomputeSize();
    QCOMPARE(page->geometry(), QRect(0, 0, 200, 300));
}

// The layout of a QStackedWidget answers each request by filling it with the page.
void TestStackedWidgetFit::fitSurvivesLayoutRequests()
{
    auto* page = new Page(QSizePolicy::Minimum, 50);
    Window window(page);
    window.show();
    page->setContent(120);
    QApplication::processEvents();
    QTRY_COMPARE(page->geometry(), QRect(0, 0, 200, 120));
    page->setContent(400);
    QTRY_COMPARE(window.stack->height(), 400);
    QTRY_COMPARE(page->geometry(), QRect(0, 0, 200, 400));
}

void TestStackedWidgetFit::fillSurvivesLayoutRequests()
{
    auto* page = new Page(QSizePolicy::Preferred, 50);
    Window window(page);
    window.show();
    page->setContent(120);
    QApplication::processEvents();
    QCOMPARE(page->geometry(), QRect(0, 0, 200, 300));
}

void TestStackedWidgetFit::changeOfPageFits()
{
    auto* low = new Page(QSizePolicy::Minimum, 50);
    auto* filling = new Page(QSizePolicy::Preferred, 500);
    auto* high = new Page(QSizePolicy::Fixed, 120);
    Window window(low);
    window.stack->addWidget(filling);
    window.stack->addWidget(high);
    window.show();
    window.stack->setCurrentWidget(filling);
    QCOMPARE(filling->geometry(), QRect(0, 0, 200, 300));
    window.stack->setCurrentWidget(high);
    QCOMPARE(high->geometry(), QRect(0, 0, 200, 120));
    QApplication::processEvents();
    QCOMPARE(high->geometry(), QRect(0, 0, 200, 120));
    window.stack->setCurrentWidget(low);
    QApplication::processEvents();
    QCOMPARE(low->geometry(), QRect(0, 0, 200, 50));
}

void TestStackedWidgetFit::resizeFits()
{
    auto* page = new FlowPage(20000);
    Window window(page);
    window.show();
    QCOMPARE(page->geometry(), QRect(0, 0, 200, 100));
    window.widget.resize(400, 300);
    QTRY_COMPARE(page->geometry(), QRect(0, 0, 400, 50));
    window.stack->setCurrentWidget(page);
}

// A parent without a layout gets a request itself when a widget in it asks for room.
void TestStackedWidgetFit::upwardWalkStopsAtTheScrollArea()
{
    QWidget top;
    auto* middle = new QWidget(&top);
    auto* area = new QScrollArea(middle);
    auto* contents = new QWidget;
    area->setWidget(contents);
    auto* stack = new StackedWidgetFit(contents);
    auto* page = new Page(QSizePolicy::Minimum, 50);
    stack->addWidget(page);
    top.show();
    QVERIFY(QTest::qWaitForWindowExposed(&top));
    QApplication::processEvents();

    const Counter fromStack(contents, QEvent::LayoutRequest);
    const Counter fromArea(middle, QEvent::LayoutRequest);
    const Counter fromMiddle(&top, QEvent::LayoutRequest);
    stack->recomputeSize();
    QApplication::processEvents();
    QCOMPARE(fromStack.count, 1);
    QCOMPARE(fromArea.count, 1);
    QCOMPARE(fromMiddle.count, 0);

    stack->setParent(middle);
    stack->show();
    QApplication::processEvents();
    stack->recomputeSize();
    QApplication::processEvents();
    QVERIFY(fromMiddle.count > 0);

    // A page that fills moves nothing above the stack.
    const int before = fromMiddle.count;
    page->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    stack->recomputeSize();
    QApplication::processEvents();
    QCOMPARE(fromMiddle.count, before);
}

void TestStackedWidgetFit::stackScrollsByItsContent()
{
    QScrollArea area;
    area.setWidgetResizable(true);
    area.setFrameShape(QFrame::NoFrame);
    auto* contents = new QWidget;
    auto* box = new QVBoxLayout(contents);
    box->setContentsMargins(0, 0, 0, 0);
    auto* stack = new StackedWidgetFit(contents);
    box->addWidget(stack);
    auto* high = new Page(QSizePolicy::Minimum, 700);
    auto* low = new Page(QSizePolicy::Minimum, 100);
    stack->addWidget(high);
    stack->addWidget(low);
    area.setWidget(contents);
    area.resize(200, 300);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QTRY_COMPARE(high->height(), 700);
    stack->setCurrentWidget(low);
    QTRY_COMPARE(low->height(), 100);
    QTRY_COMPARE(contents->height(), 300);
}

void TestStackedWidgetFit::pageMayRecomputeInItsResize()
{
    auto* page = new Page(QSizePolicy::Minimum, 50);
    Window window(page);
    page->onResize = [&] { window.stack->recomputeSize(); };
    window.show();
    QCOMPARE(page->height(), 50);
    page->setContent(80);
    QTRY_COMPARE(page->height(), 80);
    page->onResize = nullptr;
}

void TestStackedWidgetFit::pageMayVanishWhileMeasured()
{
    auto* page = new Page(QSizePolicy::Minimum, 50);
    StackedWidgetFit stack(nullptr);
    stack.addWidget(page);
    stack.resize(200, 100);
    stack.show();
    QVERIFY(QTest::qWaitForWindowExposed(&stack));
    auto* label = new QLabel(QStringLiteral("next"));
    page->onResize = [&] {
        page->onResize = nullptr;
        stack.removeWidget(page);
        page->deleteLater();
        stack.addWidget(label);
    };
    stack.recomputeSize();
    QTRY_COMPARE(stack.count(), 1);
    QCOMPARE(stack.currentWidget(), label);
}

void TestStackedWidgetFit::destroyedPagesAreForgotten()
{
    auto* first = new Page(QSizePolicy::Minimum, 50);
    auto* second = new Page(QSizePolicy::Minimum, 70);
    Window window(first);
    window.stack->addWidget(second);
    window.show();
    delete first;
    QCOMPARE(window.stack->currentWidget(), second);
    QTRY_COMPARE(second->geometry(), QRect(0, 0, 200, 70));
    delete second;
    window.stack->recomputeSize();
    QCOMPARE(window.stack->minimumSizeHint(), QSize(0, 0));
}

void TestStackedWidgetFit::restsWhenNothingChanges()
{
    auto* page = new Page(QSizePolicy::Minimum, 50);
    Window window(page);
    window.show();
    window.stack->recomputeSize();
    const Counter requests(window.stack, QEvent::LayoutRequest);
    QTRY_VERIFY(isAtRest(requests));
    QVERIFY(requests.count < 10);
}

void TestStackedWidgetFit::stackOnAFittedPageRests()
{
    auto* outer = new Page(QSizePolicy::Minimum, 20);
    auto* inner = new StackedWidgetFit(outer);
    outer->layout()->setSpacing(0);
    outer->layout()->addWidget(inner);
    auto* page = new Page(QSizePolicy::Minimum, 50);
    inner->addWidget(page);
    Window window(outer);
    window.show();
    const Counter requests(window.stack, QEvent::LayoutRequest);
    QTRY_VERIFY(isAtRest(requests));
    QCOMPARE(outer->geometry(), QRect(0, 0, 200, 70));
    QCOMPARE(page->size(), QSize(200, 50));

    page->setContent(90);
    QTRY_COMPARE(outer->geometry(), QRect(0, 0, 200, 110));
    page->setContent(10);
    QTRY_COMPARE(outer->geometry(), QRect(0, 0, 200, 30));
    QTRY_VERIFY(isAtRest(requests));
    QVERIFY(requests.count < 40);
}

LASERWELD_TEST_MAIN(TestStackedWidgetFit)
#include "tst_stackedwidgetfit.moc"
