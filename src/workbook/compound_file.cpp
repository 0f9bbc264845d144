// SPDX-License-Identifier: MIT
//
//     OLE2 compound file (libgsf lays out its sectors)
//         Workbook                 the BIFF8 records
//         \005SummaryInformation   title and application, in UTF-8
#include "workbook/compound_file.h"

#include <gsf/gsf-doc-meta-data.h>
#include <gsf/gsf-meta-names.h>
#include <gsf/gsf-msole-utils.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-output-stdio.h>
#include <gsf/gsf-utils.h>

#include <cerrno>
#include <memory>
#include <system_error>

namespace xls {

namespace {

struct unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class Object>
using object_ptr = std::unique_ptr<Object, unref>;

/// Raises the error that an output has run into, as far as it says.
void check(bool done, GsfOutput* output, GsfOutput* sink)
{
    if (done)
        return;
    const auto* error = gsf_output_error(sink);
    if (error == nullptr)
        error = gsf_output_error(output);
    const int code = error == nullptr || error->code == 0 ? EIO : error->code;
    throw std::system_error(code, std::generic_category());
}

/// Closes an output when it goes out of use, as libgsf wants even after a failure.
class open_output {
public:
    open_output(GsfOutput* output, GsfOutput* sink) : output_(output), sink_(sink)
    {
        check(output != nullptr, sink, sink);
    }
    ~open_output()
    {
        if (gsf_output_is_closed(output_.get()) == FALSE)
            gsf_output_close(output_.get());
    }
    open_output(const open_output&) = delete;
    open_output& operator=(const open_output&) = delete;

    GsfOutput* get() const { return output_.get(); }
    void write(byte_view bytes) const
    {
        check(gsf_output_write(get(), bytes.size(), bytes.data()) != FALSE, get(), sink_);
    }
    void close() const
    {
        check(gsf_output_close(get()) != FALSE && gsf_output_error(sink_) == nullptr, get(), sink_);
    }

private:
    object_ptr<GsfOutput> output_;
    GsfOutput* sink_;
};

/// A property's value, which the properties take over.
GValue* new_value(GType type)
{
    return g_value_init(g_new0(GValue, 1), type); // NOLINT(clang-analyzer-unix.Malloc): see above
}

void insert_text(GsfDocMetaData* properties, const char* name, const std::string& text)
{
    if (text.empty())
        return;
    auto* value = new_value(G_TYPE_STRING);
    g_value_set_string(value, text.c_str());
    gsf_doc_meta_data_insert(properties, g_strdup(name), value);
}

void write_properties(const open_output& out, const compound_content& content)
{
    constexpr int utf8 = 65001; // whatever the machine's own encoding is
    const object_ptr<GsfDocMetaData> properties(gsf_doc_meta_data_new());
    auto* codepage = new_value(G_TYPE_INT);
    g_value_set_int(codepage, utf8);
    gsf_doc_meta_data_insert(properties.get(), g_strdup(GSF_META_NAME_CODEPAGE), codepage);
    insert_text(properties.get(), GSF_META_NAME_TITLE, content.title);
    insert_text(properties.get(), GSF_META_NAME_GENERATOR, content.application);
    gsf_doc_meta_data_write_to_msole(properties.get(), out.get(), FALSE);
}

void write_to(GsfOutput* sink, const compound_content& content)
{
    const open_output container(GSF_OUTPUT(gsf_outfile_msole_new(sink)), sink);
    const auto add_stream = [&](const char* name) {
        return gsf_outfile_new_child(GSF_OUTFILE(container.get()), name, FALSE);
    };
    {
        const open_output workbook(add_stream("Workbook"), sink);
        content.write_workbook([&](byte_view bytes) { workbook.write(bytes); });
        workbook.close();
    }
    {
        const open_output properties(add_stream("\005SummaryInformation"), sink);
        write_properties(properties, content);
        properties.close();
    }
    container.close();
}

} // namespace

void write_compound_file(std::FILE* file, const compound_content& content)
{
    gsf_init();
    const object_ptr<GsfOutput> sink(gsf_output_stdio_new_FILE("workbook", file, TRUE));
    write_to(sink.get(), content);
}

std::vector<std::uint8_t> compound_file_bytes(const compound_content& content)
{
    gsf_init();
    const object_ptr<GsfOutput> sink(gsf_output_memory_new());
    write_to(sink.get(), content);
    auto* const memory = GSF_OUTPUT_MEMORY(sink.get());
    const auto* const bytes = gsf_output_memory_get_bytes(memory);
    return {bytes, bytes + gsf_output_size(sink.get())};
}

} // namespace xls
