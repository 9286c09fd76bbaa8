#include "services/report/docx_package.h"

#include <zip.h>

#include <array>
#include <memory>
#include <utility>

#include "services/report/docx_parts.h"
#include "services/report/report_errors.h"

namespace kestra::report {
namespace {

[[noreturn]] void ZipFailed(zip_error_t* err, const char* step) {
  const std::string what = std::string("cannot build the .docx package (") + step + "): " + zip_error_strerror(err);
  zip_error_fini(err);
  throw COleException(kHresultFail, what);
}

[[noreturn]] void ZipFailed(zip_t* za, const char* step) {
  const std::string what = std::string("cannot build the .docx package (") + step + "): " + zip_strerror(za);
  zip_discard(za);
  throw COleException(kHresultFail, what);
}

struct SourceDeleter {
  void operator()(zip_source_t* s) const { zip_source_free(s); }
};

}  // namespace

std::string DocumentTitle(const ReportDocument& doc) {
  for (const Paragraph& p : doc.paragraphs) {
    if (p.style_id == "Heading1") return p.Text();
  }
  return {};
}

std::string DocxBytes(const ReportDocument& doc, std::time_t created, const ProjectInfo& project) {
  // The parts must outlive zip_close, which is when libzip reads them.
  const std::array<std::pair<const char*, std::string>, 10> parts{{
      {"[Content_Types].xml", ContentTypesXml()},
      {"_rels/.rels", PackageRelsXml()},
      {"word/document.xml", DocumentXml(doc)},
      {"word/_rels/document.xml.rels", DocumentRelsXml()},
      {"word/styles.xml", StylesXml(doc)},
      {"word/settings.xml", SettingsXml()},
      {"word/header1.xml", HeaderXml(project)},
      {"word/footer1.xml", FooterXml()},
      {"docProps/core.xml", CorePropertiesXml(PackageInfo{DocumentTitle(doc), created})},
      {"docProps/app.xml", AppPropertiesXml()},
  }};

  zip_error_t err;
  zip_error_init(&err);
  std::unique_ptr<zip_source_t, SourceDeleter> buffer(zip_source_buffer_create(nullptr, 0, 0, &err));
  if (!buffer) ZipFailed(&err, "buffer");
  zip_t* za = zip_open_from_source(buffer.get(), ZIP_TRUNCATE, &err);
  if (za == nullptr) ZipFailed(&err, "open");
  zip_source_keep(buffer.get());  // the archive's close must not free the buffer we read back
  zip_error_fini(&err);

  for (const auto& [name, xml] : parts) {
    zip_source_t* src = zip_source_buffer(za, xml.data(), xml.size(), 0);
    if (src == nullptr) ZipFailed(za, name);
    const zip_int64_t index = zip_file_add(za, name, src, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
      zip_source_free(src);
      ZipFailed(za, name);
    }
    // Each deflated member costs a compressor set-up (about a quarter of a millisecond), which
    // buys nothing on the small fixed parts: only the large ones are deflated.
    const bool deflate = xml.size() > 2048;
    if (zip_set_file_compression(za, static_cast<zip_uint64_t>(index), deflate ? ZIP_CM_DEFLATE : ZIP_CM_STORE,
                                 deflate ? 6 : 0) != 0) {
      ZipFailed(za, name);
    }
  }
  if (zip_close(za) != 0) ZipFailed(za, "close");

  zip_source_t* src = buffer.get();
  zip_stat_t st;
  zip_stat_init(&st);
  if (zip_source_stat(src, &st) != 0 || (st.valid & ZIP_STAT_SIZE) == 0 || zip_source_open(src) != 0) {
    throw COleException(kHresultFail, "cannot read back the .docx package");
  }
  std::string bytes(static_cast<std::size_t>(st.size), '\0');
  const zip_int64_t got = zip_source_read(src, bytes.data(), bytes.size());
  zip_source_close(src);
  if (got < 0 || static_cast<zip_uint64_t>(got) != st.size) {
    throw COleException(kHresultFail, "cannot read back the .docx package");
  }
  return bytes;
}

}  // namespace kestra::report
