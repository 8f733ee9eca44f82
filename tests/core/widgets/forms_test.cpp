#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

QStringList& happened() {
    static QStringList lines;
    return lines;
}

class OuterForm : public FormWindow {
public:
    OuterForm() : FormWindow(u"frmAussen"_s) { happened() << u"made outer"_s; }
    ~OuterForm() override { happened() << u"gone outer"_s; }
    void Unload() override { happened() << u"unload outer"_s; }

protected:
    void Prepare() override { happened() << u"prepare outer"_s; }
};

class InnerForm : public FormWindow {
public:
    InnerForm() : FormWindow(u"frmInnen"_s) {}
    ~InnerForm() override { happened() << u"gone inner"_s; }
    void Unload() override { throw std::runtime_error("the file is gone"); }

protected:
    void Prepare() override { happened() << u"prepare inner"_s; }
};

} // namespace

class FormsTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        TestBase::init();
        happened().clear();
    }

    void aFormIsMadeOnceAtItsFirstUse() {
        QVERIFY(!registeredForm(typeid(OuterForm)));
        auto& form = Form<OuterForm>();
        QCOMPARE(&Form<OuterForm>(), &form);
        QCOMPARE(happened(), QStringList(u"made outer"_s));
        QCOMPARE(form.objectName(), u"frmAussen"_s);
    }

    void aFormIsPreparedWheneverItIsShown() {
        auto& form = Form<OuterForm>();
        happened().clear();
        form.ShowOver(nullptr);
        QCOMPARE(happened(), QStringList(u"prepare outer"_s));
        form.hide();
        form.ShowOver(nullptr);
        QCOMPARE(happened(), QStringList({u"prepare outer"_s, u"prepare outer"_s}));
    }

    void theOpenerIsPreparedAgainWhenTheFormGoesAway() {
        auto& outer = Form<OuterForm>();
        outer.ShowOver(nullptr);
        happened().clear();
        auto& inner = Form<InnerForm>();
        inner.ShowOver(&outer);
        QCOMPARE(happened(), QStringList(u"prepare inner"_s));
        inner.close();
        QCOMPARE(happened(), QStringList({u"prepare inner"_s, u"prepare outer"_s}));
    }

    void unloadingEndsAllFormsTheNewestFirstAndPassesErrorsOver() {
        Form<OuterForm>();
        Form<InnerForm>();
        happened().clear();
        unloadForms();
        QCOMPARE(happened(), QStringList({u"gone inner"_s, u"unload outer"_s, u"gone outer"_s}));
        QVERIFY(!registeredForm(typeid(OuterForm)));
        QVERIFY(!registeredForm(typeid(InnerForm)));
    }
};

KOLIBRI_TEST_MAIN(FormsTest)
#include "forms_test.moc"
