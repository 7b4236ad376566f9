#pragma once

#include "results/FigureReader.h"
#include "results/ListOrder.h"
#include "results/ResultsStore.h"
#include "results/ReviewKeys.h"
#include "source/BasicObject.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dorvik {

/// Reads the project, its files and its procedures, in lists and one by one.
class ItemReader {
public:
    /// REQUIRES: all of them outlive this.
    ItemReader(
        ResultsStore& store, const ReviewKeys& keys, const ListOrder& order, FigureReader& figures)
        : m_store(store), m_keys(keys), m_order(order), m_figures(figures) {}

    BasicObject GetProjectDetails(bool ignoreFilter);
    /// The source files and the project file, by the sort fields or, with `sortByFilename`, by file name. Those
    /// without violations are omitted if the settings hide them, unless `includeAll` is true.
    std::vector<BasicObject> GetProjectSourceFileList(bool includeAll, bool sortByFilename);
    /// The procedures and sections of a file, likewise. Without `withStats` their violations and lines are
    /// not read.
    std::vector<BasicObject>
    GetSourceFileProcList(std::int32_t sourceId, bool includeAll, bool withStats);
    bool SourceFileHasProcs(std::int32_t sourceId, bool realProcsOnly);
    /// The number of source files of one type; if `type` is empty, of all, including the project file.
    std::int32_t GetSourceFileCount(std::string_view type);
    BasicObject GetProcedureDetails(std::int32_t procId);

    /// A field of the project, of a file or of a procedure as text; empty if there is none.
    std::string GetProjectData(std::string_view field);
    std::string GetSourceFileData(std::string_view field, std::int32_t sourceId);
    std::string GetProcedureData(std::string_view field, std::int32_t procId);

private:
    BasicObject ReadSourceFile(Recordset& rows);
    BasicObject ReadProcedure(Recordset& rows, bool withStats);

    ResultsStore& m_store;
    const ReviewKeys& m_keys;
    const ListOrder& m_order;
    FigureReader& m_figures;
};

}  // namespace dorvik
