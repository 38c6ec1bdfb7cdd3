object PlanningForm: TPlanningForm
end
