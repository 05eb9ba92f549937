#include "tests/support/windows/workbook_server.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/windows/msxml_library.h"
#include "platform/windows/windows_file_system.h"
#include "platform/workbooks/file_spreadsheets.h"

namespace quorbind::testing {

/// Shared with the objects that are given out.
struct WorkbookServer::State {
  int objectsInUse = 0;
  DWORD lastMode = 0;
  int booksOpened = 0;
  /// By workbook, sheet, row and column.
  std::map<std::tuple<int, std::int32_t, std::int32_t, std::int32_t>, int> asked;

  WindowsFileSystem files;
  MsxmlLibrary xml{files};
  FileSpreadsheets spreadsheets{files, xml};
};

namespace {

using State = std::shared_ptr<WorkbookServer::State>;

// {6F1C2B1E-54C1-4E0B-9A43-0B5B6D7A9E01}
constexpr CLSID kWorkbookClass{
    0x6F1C2B1E, 0x54C1, 0x4E0B, {0x9A, 0x43, 0x0B, 0x5B, 0x6D, 0x7A, 0x9E, 0x01}};
constexpr const wchar_t* kWorkbookClassText = L"{6F1C2B1E-54C1-4E0B-9A43-0B5B6D7A9E01}";
/// The classes that binary workbooks name in their files themselves, which count more than the
/// files' names.
constexpr CLSID kBinaryWorkbookClass{
    0x00020820, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr CLSID kOlderBinaryWorkbookClass{
    0x00020810, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr const wchar_t* kWorkbookName = L"QuorbindTest.Workbook";
constexpr const wchar_t* kProgramName = L"Excel.Application";

/// An object that counts itself and has one member, which answers an object or a value.
class LateBound : public IDispatch {
 public:
  LateBound(State state, std::wstring member)
      : state_(std::move(state)), member_(std::move(member)) {
    ++state_->objectsInUse;
  }
  virtual ~LateBound() { --state_->objectsInUse; }
  LateBound(const LateBound&) = delete;
  LateBound& operator=(const LateBound&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(IDispatch);
    *object = isKnown ? static_cast<IDispatch*>(this) : nullptr;
    if (isKnown) {
      AddRef();
    }
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE
  GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    const bool isKnown = member_ == names[0];
    ids[0] = isKnown ? 1 : DISPID_UNKNOWN;
    return isKnown ? S_OK : DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member,
                                   REFIID,
                                   LCID,
                                   WORD,
                                   DISPPARAMS* parameters,
                                   VARIANT* result,
                                   EXCEPINFO*,
                                   UINT*) override {
    if (member != 1) {
      return DISP_E_MEMBERNOTFOUND;
    }
    try {
      std::vector<std::int32_t> numbers;
      for (UINT i = parameters->cArgs; i > 0; --i) {
        numbers.push_back(Variant::copyOf(parameters->rgvarg[i - 1]).integer());
      }
      *result = answer(numbers).detach();
      return S_OK;
    } catch (const RunTimeError& error) {
      return error.is(ErrorNumber::kSubscriptOutOfRange) ? DISP_E_BADINDEX : E_FAIL;
    }
  }

 protected:
  virtual Variant answer(const std::vector<std::int32_t>& arguments) = 0;
  [[nodiscard]] const State& state() const { return state_; }

 private:
  State state_;
  std::wstring member_;
  ULONG references_ = 0;
};

Variant variantOf(LateBound* object) {
  return Variant::ofObject(ComPtr<IDispatch>::sharing(object));
}

class CellObject final : public LateBound {
 public:
  CellObject(State state, std::string text)
      : LateBound(std::move(state), L"Text"), text_(std::move(text)) {}

 private:
  Variant answer(const std::vector<std::int32_t>&) override { return Variant::ofText(text_); }

  std::string text_;
};

class SheetObject final : public LateBound {
 public:
  SheetObject(State state, int book, std::int32_t number, std::unique_ptr<Worksheet> sheet)
      : LateBound(std::move(state), L"Cells"),
        book_(book),
        number_(number),
        sheet_(std::move(sheet)) {}

 private:
  Variant answer(const std::vector<std::int32_t>& at) override {
    ++state()->asked[{book_, number_, at.at(0), at.at(1)}];
    return variantOf(new CellObject(state(), sheet_->cellText(at.at(0), at.at(1))));
  }

  int book_;
  std::int32_t number_;
  std::unique_ptr<Worksheet> sheet_;
};

/// A workbook, which is nothing until it is told to load a file.
class BookObject final : public LateBound, public IPersistFile {
 public:
  explicit BookObject(State state) : LateBound(std::move(state), L"Worksheets") {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id == __uuidof(IPersistFile) || id == __uuidof(IPersist)) {
      *object = static_cast<IPersistFile*>(this);
      AddRef();
      return S_OK;
    }
    return LateBound::QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return LateBound::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return LateBound::Release(); }

  HRESULT STDMETHODCALLTYPE Load(LPCOLESTR name, DWORD mode) override {
    state()->lastMode = mode;
    try {
      book_ = state()->spreadsheets.open(toUtf8(name));
      number_ = ++state()->booksOpened;
      return S_OK;
    } catch (const RunTimeError&) {
      return STG_E_UNKNOWN;
    }
  }
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* identity) override {
    *identity = kWorkbookClass;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE IsDirty() override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE Save(LPCOLESTR, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SaveCompleted(LPCOLESTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetCurFile(LPOLESTR*) override { return E_NOTIMPL; }

 private:
  Variant answer(const std::vector<std::int32_t>& arguments) override {
    const std::int32_t number = arguments.at(0);
    return variantOf(new SheetObject(state(), number_, number, book_->worksheet(number)));
  }

  std::unique_ptr<Workbook> book_;
  int number_ = 0;
};

/// Makes workbooks. It lives as long as its registration.
class BookFactory final : public IClassFactory {
 public:
  explicit BookFactory(State state) : state_(std::move(state)) {}
  virtual ~BookFactory() = default;
  BookFactory(const BookFactory&) = delete;
  BookFactory& operator=(const BookFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(IClassFactory);
    *object = isKnown ? static_cast<IClassFactory*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (outer != nullptr) {
      return CLASS_E_NOAGGREGATION;
    }
    const auto book = ComPtr<LateBound>::sharing(new BookObject(state_));
    return book->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  State state_;
};

/// The text of a key below the system's classes, and what was there before.
class ClassText {
 public:
  ClassText(std::wstring key, const std::wstring& text) : key_(std::move(key)) {
    LONG size = 0;
    existed_ = ::RegQueryValueW(HKEY_CLASSES_ROOT, key_.c_str(), nullptr, &size) == ERROR_SUCCESS;
    if (existed_) {
      before_.resize(static_cast<std::size_t>(size) / sizeof(wchar_t));
      ::RegQueryValueW(HKEY_CLASSES_ROOT, key_.c_str(), before_.data(), &size);
    }
    set(text);
  }
  ~ClassText() {
    if (existed_) {
      ::RegSetValueW(HKEY_CLASSES_ROOT, key_.c_str(), REG_SZ, before_.c_str(), 0);
    } else {
      ::RegDeleteKeyW(HKEY_CLASSES_ROOT, key_.c_str());
    }
  }
  ClassText(const ClassText&) = delete;
  ClassText& operator=(const ClassText&) = delete;

 private:
  void set(const std::wstring& text) {
    if (::RegSetValueW(HKEY_CLASSES_ROOT, key_.c_str(), REG_SZ, text.c_str(), 0) != ERROR_SUCCESS) {
      throw std::runtime_error("the registry can't be written");
    }
  }

  std::wstring key_;
  bool existed_ = false;
  std::wstring before_;
};

}  // namespace

/// What the system knows of the server. Keys are taken out from the innermost on.
class WorkbookServer::Registration {
 public:
  explicit Registration(std::shared_ptr<State> state) : factory_(std::move(state)) {
    serve(kWorkbookClass);
    serve(kBinaryWorkbookClass);
    serve(kOlderBinaryWorkbookClass);
  }
  ~Registration() {
    for (const DWORD cookie : cookies_) {
      ::CoRevokeClassObject(cookie);
    }
  }
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;

 private:
  void serve(const CLSID& identity) {
    DWORD& cookie = cookies_.emplace_back();
    requireSuccess(::CoRegisterClassObject(
        identity, &factory_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
  }

  ClassText program_{kProgramName, L"Spreadsheets for tests"};
  ClassText programClass_{std::wstring(kProgramName) + L"\\CLSID", kWorkbookClassText};
  ClassText workbook_{kWorkbookName, L"Workbook for tests"};
  ClassText workbookClass_{std::wstring(kWorkbookName) + L"\\CLSID", kWorkbookClassText};
  ClassText packed_{L".xlsx", kWorkbookName};
  ClassText packedWithMacros_{L".xlsm", kWorkbookName};
  ClassText binary_{L".xls", kWorkbookName};
  BookFactory factory_;
  std::vector<DWORD> cookies_;
};

WorkbookServer::WorkbookServer()
    : state_(std::make_shared<State>()), registration_(std::make_unique<Registration>(state_)) {}

WorkbookServer::~WorkbookServer() = default;

int WorkbookServer::objectsInUse() const {
  return state_->objectsInUse;
}

std::uint32_t WorkbookServer::lastMode() const {
  return state_->lastMode;
}

int WorkbookServer::mostAsked() const {
  int most = 0;
  for (const auto& [cell, times] : state_->asked) {
    most = std::max(most, times);
  }
  return most;
}

ComPtr<IDispatch> WorkbookServer::sheetOf(const std::string& path, std::int32_t number) {
  return ComPtr<IDispatch>::sharing(
      new SheetObject(state_, 0, number, state_->spreadsheets.open(path)->worksheet(number)));
}

ComPtr<IDispatch> automationSheet(std::unique_ptr<Worksheet> sheet) {
  const auto state = std::make_shared<WorkbookServer::State>();
  return ComPtr<IDispatch>::sharing(new SheetObject(state, 0, 1, std::move(sheet)));
}

}  // namespace quorbind::testing
