#include "dlglib/filedialog/basics/patient_services.h"

#include <new>
#include <utility>
#include <vector>

#include "dlglib/filedialog/basics/call_site.h"

namespace filedialog {

namespace {

using std::optional;
using std::string;

/// Deleting and writing are nobody's here: a deletion shows windows of the system, and the browser writes no file.
class PatientFiles final : public os::Files {
 public:
  PatientFiles(os::Files& plain, Patience& patience) : plain_(plain), patience_(patience) {}

  bool Exists(const string& path) override {
    return patience_.AskFor<bool>(path, [plain = &plain_, path] { return plain->Exists(path); });
  }
  optional<os::FileStatus> Status(const string& path) override {
    return patience_.AskFor<optional<os::FileStatus>>(path, [plain = &plain_, path] { return plain->Status(path); });
  }
  optional<std::uint32_t> Attributes(const string& path) override {
    return patience_.AskFor<optional<std::uint32_t>>(path, [plain = &plain_, path] { return plain->Attributes(path); });
  }
  string CurrentFolder() override { return plain_.CurrentFolder(); }
  optional<std::tm> LocalTime(std::int64_t modified) override { return plain_.LocalTime(modified); }
  std::unique_ptr<os::FolderPass> OpenFolder(const string& folder) override { return plain_.OpenFolder(folder); }
  optional<string> Read(const string& path, std::size_t limit) override {
    return patience_.AskFor<optional<string>>(path,
                                              [plain = &plain_, path, limit] { return plain->Read(path, limit); });
  }
  std::unique_ptr<os::TextWriter> CreateText(const string& path) override { return plain_.CreateText(path); }
  bool Remove(const string& path) override { return plain_.Remove(path); }
  int Rename(const string& from, const string& to) override {
    return patience_.AskFor<int>(
        from, [plain = &plain_, from, to] { return plain->Rename(from, to); }, Question::kRenaming);
  }
  std::uint32_t CreateFolder(const string& path) override {
    return patience_.AskFor<std::uint32_t>(
        path, [plain = &plain_, path] { return plain->CreateFolder(path); }, Question::kMaking);
  }

 private:
  os::Files& plain_;
  Patience& patience_;
};

class PatientDrives final : public os::Drives {
 public:
  PatientDrives(os::Drives& plain, Patience& patience) : plain_(plain), patience_(patience) {}

  std::uint32_t Mask() override { return plain_.Mask(); }
  os::DriveType Type(const string& root) override {
    return patience_.AskFor<os::DriveType>(root, [plain = &plain_, root] { return plain->Type(root); });
  }
  optional<string> VolumeName(const string& root) override {
    return patience_.AskFor<optional<string>>(root, [plain = &plain_, root] { return plain->VolumeName(root); });
  }
  optional<os::DriveSpace> Space(const string& root) override {
    return patience_.AskFor<optional<os::DriveSpace>>(root, [plain = &plain_, root] { return plain->Space(root); });
  }

 private:
  os::Drives& plain_;
  Patience& patience_;
};

class PatientShell final : public os::Shell {
 public:
  PatientShell(os::Shell& plain, Patience& patience) : plain_(plain), patience_(patience) {}

  /// Asked once: the browser needs it at every click while it stands on the desktop.
  optional<string> DesktopFolder() override {
    if (!desktop_) {
      desktop_ = patience_.AskFor<optional<string>>("desktop", [plain = &plain_] { return plain->DesktopFolder(); });
    }
    return *desktop_;
  }
  optional<string> ResolveLink(const string& linkPath) override {
    return patience_.AskFor<optional<string>>(linkPath,
                                              [plain = &plain_, linkPath] { return plain->ResolveLink(linkPath); });
  }
  os::DeleteOutcome DeleteToRecycleBin(os::WindowHandle owner, const string& list, const string& title) override {
    return plain_.DeleteToRecycleBin(owner, list, title);
  }

 private:
  os::Shell& plain_;
  Patience& patience_;
  optional<optional<string>> desktop_;
};

/// Lets an enumeration that nobody has closed go on a worker: the system closes it then, and may take its time.
class LettingGo final : public os::Errand {
 public:
  explicit LettingGo(std::shared_ptr<os::NetPass> pass) : pass_(std::move(pass)) {}
  void Run() noexcept override { pass_.reset(); }

 private:
  std::shared_ptr<os::NetPass> pass_;
};

/// An enumeration whose calls are made on workers.
class PatientPass final : public os::NetPass {
 public:
  PatientPass(std::shared_ptr<os::NetPass> plain, string path, Patience& patience)
      : plain_(std::move(plain)), path_(std::move(path)), patience_(patience) {}
  PatientPass(const PatientPass&) = delete;
  PatientPass& operator=(const PatientPass&) = delete;
  ~PatientPass() override {
    os::Workers* const workers = patience_.Workers();
    if (isClosed_ || workers == nullptr) return;
    try {
      static_cast<void>(
          workers->Begin(std::make_shared<LettingGo>(std::move(plain_)), SiteOf(path_), os::Urgency::Background));
    } catch (const std::bad_alloc&) {
      return;  // then it is closed here
    }
  }

  bool Next(std::vector<os::NetResource>* records) override {
    using Found = std::pair<bool, std::vector<os::NetResource>>;
    Found found = patience_.AskFor<Found>(path_, [plain = plain_] {
      Found all;
      all.first = plain->Next(&all.second);
      return all;
    });
    std::move(found.second.begin(), found.second.end(), std::back_inserter(*records));
    return found.first;
  }
  bool Close() override {
    const bool closes = patience_.AskFor<bool>(path_, [plain = plain_] { return plain->Close(); });
    isClosed_ = true;
    return closes;
  }

 private:
  std::shared_ptr<os::NetPass> plain_;
  string path_;
  Patience& patience_;
  bool isClosed_ = false;
};

class PatientNetwork final : public os::Network {
 public:
  PatientNetwork(os::Network& plain, Patience& patience) : plain_(plain), patience_(patience) {}

  bool Present() override { return plain_.Present(); }
  bool RemoteSession() override { return plain_.RemoteSession(); }
  optional<string> TerminalProvider() override {
    return patience_.AskFor<optional<string>>("network", [plain = &plain_] { return plain->TerminalProvider(); });
  }
  std::unique_ptr<os::NetPass> Open(std::uint32_t scope, const os::NetResource* parent, std::uint32_t* error) override {
    struct Opened {
      std::shared_ptr<os::NetPass> pass;
      std::uint32_t error = 0;
    };
    const optional<os::NetResource> above = parent != nullptr ? optional(*parent) : std::nullopt;
    const string path = above ? above->remoteName.value_or("") : "network";
    Opened opened = patience_.AskFor<Opened>(path, [plain = &plain_, scope, above] {
      Opened answer;
      answer.pass = plain->Open(scope, above ? &*above : nullptr, &answer.error);
      return answer;
    });
    if (error != nullptr) *error = opened.error;
    if (opened.pass == nullptr) return nullptr;
    return std::make_unique<PatientPass>(std::move(opened.pass), path, patience_);
  }
  optional<string> UniversalName(const string& root) override {
    return patience_.AskFor<optional<string>>(root, [plain = &plain_, root] { return plain->UniversalName(root); });
  }
  std::uint32_t Connect(const os::NetResource& resource, const string& password, const string& userName) override {
    return patience_.AskFor<std::uint32_t>(
        resource.remoteName.value_or(""),
        [plain = &plain_, resource, password, userName] { return plain->Connect(resource, password, userName); });
  }

 private:
  os::Network& plain_;
  Patience& patience_;
};

}  // namespace

struct PatientServices::Parts {
  Parts(const os::ServiceTable& plain, Patience& patience)
      : files(*plain.files, patience),
        drives(*plain.drives, patience),
        shell(*plain.shell, patience),
        network(*plain.network, patience) {}

  PatientFiles files;
  PatientDrives drives;
  PatientShell shell;
  PatientNetwork network;
};

PatientServices::PatientServices(const os::ServiceTable& plain, Patience& patience)
    : parts_(std::make_unique<Parts>(plain, patience)), plain_(plain), patience_(patience), table_(plain) {
  table_.files = &parts_->files;
  table_.drives = &parts_->drives;
  table_.shell = &parts_->shell;
  table_.network = &parts_->network;
}

PatientServices::~PatientServices() = default;

}  // namespace filedialog
